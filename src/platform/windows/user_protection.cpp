#include "platform/user_protection.h"

#include <windows.h>

#include <dpapi.h>

namespace {

DATA_BLOB blob_of(std::string_view bytes)
{
    // The functions only read it, but their type does not say so.
    return {static_cast<DWORD>(bytes.size()), reinterpret_cast<BYTE*>(const_cast<char*>(bytes.data()))};
}

// Copies what Windows allocated, wipes the original and frees it.
std::string copy_and_free(DATA_BLOB& blob)
{
    std::string bytes(reinterpret_cast<const char*>(blob.pbData), blob.cbData);
    SecureZeroMemory(blob.pbData, blob.cbData);
    LocalFree(blob.pbData);
    return bytes;
}

}  // namespace

std::optional<std::string> protect_for_user(const SecretText& secret)
{
    DATA_BLOB plain = blob_of(secret.text());
    DATA_BLOB sealed{};
    if (CryptProtectData(&plain, L"Brasslet", nullptr, nullptr, nullptr, 0, &sealed) == 0) return std::nullopt;
    return copy_and_free(sealed);
}

std::optional<SecretText> unprotect_for_user(std::string_view bytes)
{
    DATA_BLOB sealed = blob_of(bytes);
    DATA_BLOB plain{};
    if (CryptUnprotectData(&sealed, nullptr, nullptr, nullptr, nullptr, 0, &plain) == 0) return std::nullopt;
    return SecretText(copy_and_free(plain));
}
