#include "platform/resource.h"

#include <windows.h>

std::string_view load_resource(int id)
{
    const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_RCDATA);
    const HGLOBAL loaded = found == nullptr ? nullptr : LoadResource(nullptr, found);
    const void* bytes = loaded == nullptr ? nullptr : LockResource(loaded);
    if (bytes == nullptr) return {};
    return {static_cast<const char*>(bytes), SizeofResource(nullptr, found)};
}
