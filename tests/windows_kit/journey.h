// Checks that drive the real program against the kit's site.
#pragma once

#include "kit/test_folder.h"
#include "kit/windows/running_program.h"
#include "kit/windows/users_files.h"
#include "windows_kit/kit_site.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// The login that the site's replies were recorded for; it opens nothing.
inline constexpr char kPassword[] = "abcdEFGHijklMNOPqrstUVWX";
inline const Saved kSettings{"brasslet.test", "owner", kPassword};

// Not shown without the tester's yes to the authority. With it the program meets the kit's site in place of the
// internet, and a maker's page without news.
class Journey : public testing::Test {
protected:
    void SetUp() override;

    static KitSite& site() { return the_kit_site(); }

    // The requests that came to the host, the oldest first.
    static std::vector<std::string> asked_of(const std::string& host);

    // A folder with a copy of the program.
    std::wstring copy_of_program() const;

    // The box in front of the program's window; null when there is none.
    static HWND question_of(const RunningProgram& program);

    // What Windows has opened to show the zip.
    void close_opened_folder() const;

    TestFolder folder;
};
