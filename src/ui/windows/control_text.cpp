#include "ui/windows/control_text.h"

#include "platform/text_conversion.h"
#include "text/ascii.h"

std::string control_text(HWND control)
{
    if (control == nullptr) return {};
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return std::string(trimmed(narrow(text)));
}
