#include "windows_kit/memory_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bitset>
#include <filesystem>
#include <fstream>
#include <span>
#include <unordered_map>

namespace {

constexpr std::size_t kChunk = 1024 * 1024;
constexpr std::size_t kPage = 4096;

// Two bytes that stand one after the other.
unsigned pair_at(const char* bytes)
{
    return static_cast<unsigned char>(bytes[0]) * 256U + static_cast<unsigned char>(bytes[1]);
}

// Looks for all forms at once, by their first two bytes.
class Search {
public:
    explicit Search(const std::vector<Secret>& secrets)
    {
        for (const Secret& secret : secrets)
            for (const std::string& form : secret.forms) {
                m_begins.set(pair_at(form.data()));
                m_forms[pair_at(form.data())].push_back({&form, &secret.name});
                m_longest = std::max(m_longest, form.size());
            }
    }

    std::size_t longest() const { return m_longest; }
    const std::set<std::string>& found() const { return m_found; }

    void look_at(std::span<const char> bytes)
    {
        for (std::size_t i = 0; i + 1 < bytes.size(); ++i)
            if (m_begins[pair_at(&bytes[i])]) compare(bytes.subspan(i));
    }

private:
    struct Form {
        const std::string* bytes;
        const std::string* name;
    };

    void compare(std::span<const char> bytes)
    {
        for (const Form& form : m_forms[pair_at(bytes.data())])
            if (form.bytes->size() <= bytes.size() && std::equal(form.bytes->begin(), form.bytes->end(), bytes.begin()))
                m_found.insert(*form.name);
    }

    std::bitset<65536> m_begins;
    std::unordered_map<unsigned, std::vector<Form>> m_forms;
    std::size_t m_longest = 0;
    std::set<std::string> m_found;
};

// What can be read of a range; pages that nobody may read are left as zeros.
std::size_t read(HANDLE process, const char* address, std::span<char> into)
{
    SIZE_T size = 0;
    if (ReadProcessMemory(process, address, into.data(), into.size(), &size)) return size;
    std::fill(into.begin(), into.end(), '\0');
    std::size_t all = 0;
    for (std::size_t page = 0; page < into.size(); page += kPage) {
        const std::size_t length = std::min(kPage, into.size() - page);
        if (ReadProcessMemory(process, address + page, into.data() + page, length, &size)) all += size;
    }
    return all;
}

std::size_t look_at_region(HANDLE process, const MEMORY_BASIC_INFORMATION& region, Search& search)
{
    const auto* begin = static_cast<const char*>(region.BaseAddress);
    std::vector<char> bytes(kChunk + search.longest());
    std::size_t all = 0;
    for (std::size_t at = 0; at < region.RegionSize; at += kChunk) {
        const std::span<char> part(bytes.data(), std::min(bytes.size(), region.RegionSize - at));
        all += read(process, begin + at, part);
        search.look_at(part);
    }
    return all;
}

}  // namespace

std::set<std::string> found_in_memory(HANDLE process, const std::vector<Secret>& secrets,
                                      const MemoryRange& is_searched)
{
    Search search(secrets);
    MEMORY_BASIC_INFORMATION region{};
    std::size_t all = 0;
    for (const char* address = nullptr; VirtualQueryEx(process, address, &region, sizeof region) != 0;
         address = static_cast<const char*>(region.BaseAddress) + region.RegionSize)
        if (region.State == MEM_COMMIT && (!is_searched || is_searched(region)))
            all += look_at_region(process, region, search);
    constexpr std::size_t kLeast = 1024 * 1024;
    EXPECT_GT(all, kLeast) << "the memory of the program could not be read";
    return search.found();
}

std::set<std::string> found_in_file(const std::wstring& path, const std::vector<Secret>& secrets)
{
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    EXPECT_FALSE(bytes.empty()) << "the file could not be read";
    Search search(secrets);
    search.look_at(bytes);
    return search.found();
}
