// What the checks have found: a line for each on the console, and report.html and report.json beside check.exe.
#pragma once

#include "kit/windows/picture.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

// A window of another process paints when it comes to it: taken when two looks in turn were alike.
Picture steady_picture(HWND window);

// Puts a picture of the window into the running check's entry of report.html.
void show_picture(const std::string& title, HWND window);

// Puts a line into the running check's entry.
void note(const std::string& line);

struct ShownPicture {
    std::string title;
    std::string png;
    int width = 0;
    int height = 0;
};

enum class CheckResult { passed, failed, not_shown };

struct CheckEntry {
    std::string area;      // the suite's name
    std::string name;      // the check's, as it is written in the sources
    std::string sentence;  // the name in words
    CheckResult result = CheckResult::passed;
    std::string text;  // what failed, or why nothing is shown here
    std::vector<std::string> notes;
    std::vector<ShownPicture> pictures;
    long long milliseconds = 0;
};

struct Report {
    std::vector<std::pair<std::string, std::string>> facts;  // of the machine and of this run
    std::vector<CheckEntry> checks;

    int count(CheckResult result) const;
};

// "ShowsItsWindow" as "Shows its window".
std::string in_words(const std::string& name);

// The report of this process.
Report& the_report();

namespace testing {
class TestEventListener;
}

// Fills the report and prints a line for every check. Owned by GoogleTest as soon as it is appended.
std::unique_ptr<testing::TestEventListener> make_reporter();

// Writes both files into `folder`, and prints the last lines; whether the files could be written.
bool write_report(const std::string& folder);
