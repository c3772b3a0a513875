#include "plugin/package.h"

#include "platform/files.h"

#include <cstddef>
#include <cstdint>

std::uint32_t crc32(std::string_view bytes)
{
    constexpr std::uint32_t kPolynomial = 0xEDB88320;
    std::uint32_t crc = ~std::uint32_t{0};
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? (crc >> 1) ^ kPolynomial : crc >> 1;
    }
    return ~crc;
}

namespace {

constexpr std::uint16_t kVersion = 20;  // needed to extract: 2.0, for folders in names
constexpr std::uint16_t kStored = 0;

// Integers, least significant byte first.
void put16(std::string& out, std::size_t value)
{
    out += static_cast<char>(value & 0xFF);
    out += static_cast<char>(value >> 8 & 0xFF);
}

void put32(std::string& out, std::size_t value)
{
    put16(out, value & 0xFFFF);
    put16(out, value >> 16 & 0xFFFF);
}

// The fields that local header and central directory share.
void put_description(std::string& out, std::string_view name, std::string_view data)
{
    put16(out, kVersion);
    put16(out, 0);  // flags
    put16(out, kStored);
    put16(out, 0);  // time
    put16(out, 0);  // date
    put32(out, crc32(data));
    put32(out, data.size());  // compressed
    put32(out, data.size());  // uncompressed
    put16(out, name.size());
    put16(out, 0);  // extra fields
}

std::string local_part(std::string_view name, std::string_view data)
{
    std::string out = "PK\x03\x04";
    put_description(out, name, data);
    out += name;
    out += data;
    return out;
}

std::string central_directory(std::string_view name, std::string_view data)
{
    std::string out = "PK\x01\x02";
    put16(out, kVersion);  // made by
    put_description(out, name, data);
    put16(out, 0);  // comment
    put16(out, 0);  // disk number
    put16(out, 0);  // internal attributes
    put32(out, 0);  // external attributes
    put32(out, 0);  // offset of the local header
    out += name;
    return out;
}

std::string end_record(std::size_t directory_offset, std::size_t directory_size)
{
    std::string out = "PK\x05\x06";
    put16(out, 0);  // disk number
    put16(out, 0);  // disk with the directory
    put16(out, 1);  // entries on this disk
    put16(out, 1);  // entries in all
    put32(out, directory_size);
    put32(out, directory_offset);
    put16(out, 0);  // comment
    return out;
}

}  // namespace

std::string stored_zip(std::string_view name, std::string_view data)
{
    const std::string local = local_part(name, data);
    const std::string directory = central_directory(name, data);
    return local + directory + end_record(local.size(), directory.size());
}

bool write_plugin_zip(const std::string& path, std::string_view plugin)
{
    create_folders(parent_folder(path));
    const std::string temporary = path + ".tmp";
    if (write_file(temporary, stored_zip("brasslet/brasslet.php", plugin)) && replace_file(temporary, path))
        return true;
    remove_file(temporary);
    return false;
}
