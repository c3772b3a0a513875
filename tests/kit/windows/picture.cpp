#include "kit/windows/picture.h"

#include "platform/environment.h"
#include "platform/windows/windows_path.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

Colour colour_of(std::uint32_t pixel)
{
    return {static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
            static_cast<std::uint8_t>(pixel)};
}

std::vector<char> rows_from_below(const Picture& picture)
{
    std::vector<char> bytes;
    for (int y = picture.height() - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width(); ++x) {
            const Colour colour = picture.at(x, y);
            for (const int channel : {int{colour.blue}, int{colour.green}, int{colour.red}, 0})
                bytes.push_back(static_cast<char>(channel));
        }
    }
    return bytes;
}

template <typename Header>
void write(std::ofstream& file, const Header& header)
{
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
}

}  // namespace

Picture::Picture(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    m_size = {client.right, client.bottom};
    m_pixels.resize(static_cast<std::size_t>(m_size.width) * static_cast<std::size_t>(m_size.height));

    BITMAPINFO form{};
    form.bmiHeader = {sizeof form.bmiHeader, m_size.width, -m_size.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    HDC source = GetDC(window);
    HDC memory = CreateCompatibleDC(source);
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(source, &form, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, m_size.width, m_size.height, source, 0, 0, SRCCOPY);
    GdiFlush();
    const auto* first = static_cast<const std::uint32_t*>(bits);
    std::transform(first, first + m_pixels.size(), m_pixels.begin(),
                   [](std::uint32_t pixel) { return pixel & 0xFFFFFF; });
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, source);
}

Colour Picture::at(int x, int y) const
{
    return colour_of(m_pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(m_size.width) +
                                 static_cast<std::size_t>(x)));
}

bool Picture::shows(Colour colour) const
{
    return std::ranges::any_of(m_pixels, [&](std::uint32_t pixel) { return colour_of(pixel) == colour; });
}

Picture repainted(HWND window)
{
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    return Picture(window);
}

void save_picture(const Picture& picture, const std::string& name)
{
    const std::vector<char> bytes = rows_from_below(picture);
    BITMAPFILEHEADER file_header{};
    file_header.bfType = 0x4D42;  // "BM"
    file_header.bfOffBits = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    file_header.bfSize = file_header.bfOffBits + static_cast<DWORD>(bytes.size());
    BITMAPINFOHEADER form{};
    form.biSize = sizeof form;
    form.biWidth = picture.width();
    form.biHeight = picture.height();
    form.biPlanes = 1;
    form.biBitCount = 32;

    // The test program stands in build/windows/tests.
    const std::filesystem::path folder = wide_path(executable_folder() + "/../../pictures");
    std::filesystem::create_directories(folder);
    std::ofstream file(folder / (name + ".bmp"), std::ios::binary);
    write(file, file_header);
    write(file, form);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    EXPECT_TRUE(file.good()) << name;
}
