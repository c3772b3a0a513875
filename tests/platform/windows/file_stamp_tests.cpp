// What a stamp says where Windows does not answer plainly.
#include "platform/file_stamp.h"

#include "kit/child_process.h"
#include "kit/test_folder.h"
#include "kit/windows/replaced_import.h"

#include <gtest/gtest.h>

#include <initializer_list>

using AskFunction = decltype(&GetFileAttributesExW);
// The linker's variable for what this program imports.
extern "C" AskFunction __imp_GetFileAttributesExW;  // NOLINT(bugprone-reserved-identifier)

namespace {

DWORD error_to_give = 0;

BOOL WINAPI refuse(LPCWSTR, GET_FILEEX_INFO_LEVELS, LPVOID)
{
    SetLastError(error_to_give);
    return FALSE;
}

// As Windows answers for a symbolic link: with the link's own size and times.
BOOL WINAPI answer_for_a_link(LPCWSTR, GET_FILEEX_INFO_LEVELS, LPVOID answer)
{
    auto* const file = static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(answer);
    *file = {};
    file->dwFileAttributes = FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_ARCHIVE;
    return TRUE;
}

FileStamp stamp_by(AskFunction function)
{
    const ReplacedImport<AskFunction> replaced(__imp_GetFileAttributesExW, function);
    return file_stamp("C:/file");
}

}  // namespace

TEST(FileStampOfWindows, AQuestionThatIsRefusedSaysNothing)
{
    for (const DWORD error : std::initializer_list<DWORD>{ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION}) {
        error_to_give = error;
        EXPECT_EQ(stamp_by(refuse).status, FileStatus::unknown) << error;
    }
    error_to_give = ERROR_FILE_NOT_FOUND;
    EXPECT_EQ(stamp_by(refuse).status, FileStatus::missing);
}

TEST(FileStampOfWindows, ALinkSaysNothingOfTheFileThatItLeadsTo)
{
    EXPECT_EQ(stamp_by(answer_for_a_link).status, FileStatus::unknown);
}

TEST(FileStampOfWindows, AFileThatAnotherProgramHasToItselfCanBeAskedAbout)
{
    const TestFolder folder;
    folder.write("file", "text");
    folder.age("file");
    const std::string path = folder.data() + "/file";
    const FileStamp before = file_stamp(path);
    ChildProcess other({folder.path(), "hold-alone", path});
    ASSERT_EQ(other.read_line(), "open");
    EXPECT_TRUE(is_unchanged(before, file_stamp(path)));
}
