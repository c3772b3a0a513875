#include "windows_kit/png.h"

#include <windows.h>

#include <objidl.h>

#include <algorithm>

namespace Gdiplus {
// The header uses these without naming where they come from.
using std::max;
using std::min;
}  // namespace Gdiplus

#include <gdiplus.h>

namespace {

// GDI+'s own encoder.
constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

std::string bytes_of_stream(IStream* stream)
{
    HGLOBAL memory = nullptr;
    STATSTG size{};
    if (FAILED(GetHGlobalFromStream(stream, &memory)) || FAILED(stream->Stat(&size, STATFLAG_NONAME))) return {};
    const auto* first = static_cast<const char*>(GlobalLock(memory));
    std::string bytes(first, static_cast<std::size_t>(size.cbSize.QuadPart));
    GlobalUnlock(memory);
    return bytes;
}

std::string encoded(const Picture& picture)
{
    Gdiplus::Bitmap bitmap(picture.width(), picture.height(), PixelFormat32bppRGB);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const Colour colour = picture.at(x, y);
            bitmap.SetPixel(x, y, Gdiplus::Color(colour.red, colour.green, colour.blue));
        }
    }
    IStream* stream = nullptr;
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &stream))) return {};
    std::string bytes;
    if (bitmap.Save(stream, &kPngEncoder, nullptr) == Gdiplus::Ok) bytes = bytes_of_stream(stream);
    stream->Release();
    return bytes;
}

}  // namespace

std::string png_of(const Picture& picture)
{
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) return {};
    std::string bytes = picture.width() > 0 && picture.height() > 0 ? encoded(picture) : std::string();
    Gdiplus::GdiplusShutdown(token);
    return bytes;
}
