#include "kit/windows/picture_file.h"

#include "platform/environment.h"
#include "platform/windows/windows_path.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <vector>

namespace {

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
