#include "fuzz/data_folder.h"

#include "fuzz/target.h"
#include "kit/stand_in/stand_in.h"
#include "kit/test_folder.h"
#include "platform/files.h"

#include <filesystem>

namespace {

// Removed with all that it holds at the end of the process; a process that aborts leaves it behind.
const TestFolder& folder()
{
    static const TestFolder instance;
    return instance;
}

std::filesystem::path data_path()
{
    return folder().path() + "/Corvane";
}

}  // namespace

void empty_data_folder()
{
    std::filesystem::remove_all(data_path());
    stand_in() = StandIn{};
    use_local_app_data(folder().path());
}

void put_file(const std::string& name, std::string_view bytes)
{
    const std::string path = folder().data() + "/" + name;
    create_folders(parent_folder(path));
    require(write_file(path, bytes), "a test can write its files");
    stand_in().files.written.clear();
}

FilesOnDisk files_on_disk()
{
    FilesOnDisk files;
    std::error_code error;  // no folder: no files
    for (const auto& entry : std::filesystem::recursive_directory_iterator(data_path(), error)) {
        if (!entry.is_regular_file()) continue;
        const std::string name = entry.path().lexically_relative(data_path()).string();
        files[name] = read_file(entry.path().string()).value_or("not to be read");
    }
    return files;
}
