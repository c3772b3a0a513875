// Checks one target's property for every file of a folder: replay TARGET FOLDER. Exit status 0 only when the folder
// holds files and the property holds for all of them.
#include "fuzz/target.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

using Paths = std::vector<std::filesystem::path>;

Paths files_of(const std::filesystem::path& folder)
{
    Paths files;
    std::error_code error;  // no folder: no files
    for (const auto& entry : std::filesystem::directory_iterator(folder, error))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

void check_file(const FuzzTarget& target, const std::filesystem::path& path)
{
    // The name comes first: it is what is wanted when this is the last line.
    static_cast<void>(std::printf("%s\n", path.filename().c_str()));
    static_cast<void>(std::fflush(stdout));
    // A block of just that size: what reads beyond the end is seen.
    const std::size_t size = std::filesystem::file_size(path);
    const auto bytes = std::make_unique<char[]>(size);
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.get(), static_cast<std::streamsize>(size));
    require(file.good(), "a file of the corpus can be read");
    target.check({bytes.get(), size});
}

}  // namespace

int main(int count, char** arguments)
{
    if (count != 3) return 2;
    const std::string name = arguments[1];
    const auto target = std::find_if(fuzz_targets().begin(), fuzz_targets().end(),
                                     [&name](const FuzzTarget& known) { return known.name == name; });
    const Paths files = files_of(arguments[2]);
    if (target == fuzz_targets().end() || files.empty()) {
        static_cast<void>(std::fprintf(stderr, "no such target, or nothing to replay: %s\n", name.c_str()));
        return 2;
    }
    for (const auto& file : files)
        check_file(*target, file);
    return 0;
}
