#include "text/secret.h"

#include <openssl/crypto.h>

void wipe(void* memory, std::size_t size)
{
    OPENSSL_cleanse(memory, size);
}

void wipe(std::string& text)
{
    text.resize(text.capacity());
    wipe(text.data(), text.size());
    text.clear();
}

void wipe_finished_stack()
{
    std::array<std::uint8_t, 32'768> deep{};  // more than any parser or cipher call was measured to use
    wipe(deep.data(), deep.size());
}

SecretText& SecretText::operator=(const SecretText& other)
{
    if (this != &other) {
        clear();
        m_text = other.m_text;
    }
    return *this;
}

SecretText& SecretText::operator=(SecretText&& other) noexcept
{
    if (this != &other) {
        clear();
        m_text = std::move(other.m_text);
        other.clear();
    }
    return *this;
}
