#include "ui/windows/fonts.h"

#include "ui/dpi.h"

namespace {

Font make_font(const wchar_t* face, BYTE family, int height, unsigned dpi)
{
    // A negative height asks for the height of the characters instead of the line.
    return Font(CreateFontW(-scaled(height, dpi), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                            OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                            static_cast<DWORD>(DEFAULT_PITCH | family), face));
}

}  // namespace

Fonts make_fonts(unsigned dpi)
{
    return {make_font(L"Segoe UI", FF_SWISS, 16, dpi), make_font(L"Segoe UI", FF_SWISS, 14, dpi),
            make_font(L"Georgia", FF_ROMAN, 26, dpi)};
}
