// What an error code says of a file.
#pragma once

#include <windows.h>

// There is no file of that name; any other code leaves open whether there is.
inline bool is_missing(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
        return true;
    default:
        return false;
    }
}
