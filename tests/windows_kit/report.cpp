#include "windows_kit/report.h"

#include "platform/files.h"
#include "windows_kit/png.h"
#include "windows_kit/report_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace {

std::string without_blank_ends(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

const char* word_for(CheckResult result)
{
    switch (result) {
    case CheckResult::passed:
        return "passed        ";
    case CheckResult::failed:
        return "FAILED        ";
    case CheckResult::not_shown:
        return "not shown here";
    }
    return "";
}

CheckEntry entry_of(const std::string& area, const std::string& name)
{
    CheckEntry entry;
    entry.area = area;
    entry.name = name;
    entry.sentence = in_words(name);
    return entry;
}

class Reporter : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& test) override
    {
        the_report().checks.push_back(entry_of(test.test_suite_name(), test.name()));
    }

    void OnTestPartResult(const testing::TestPartResult& part) override
    {
        if (part.passed()) return;
        std::string text = without_blank_ends(part.message() != nullptr ? part.message() : "");
        if (the_report().checks.empty()) the_report().checks.push_back(entry_of("check.exe", "Itself"));
        CheckEntry& entry = the_report().checks.back();
        if (part.failed()) entry.result = CheckResult::failed;
        entry.text += entry.text.empty() ? text : "\n\n" + text;
    }

    void OnTestEnd(const testing::TestInfo& test) override
    {
        CheckEntry& entry = the_report().checks.back();
        if (test.result()->Skipped() && entry.result == CheckResult::passed) entry.result = CheckResult::not_shown;
        entry.milliseconds = test.result()->elapsed_time();
        std::printf("%s  %s: %s (%.1f s)\n", word_for(entry.result), entry.area.c_str(), entry.sentence.c_str(),
                    static_cast<double>(entry.milliseconds) / 1000.0);
        if (entry.result != CheckResult::passed) std::printf("%s\n", entry.text.c_str());
        std::fflush(stdout);
    }
};

}  // namespace

int Report::count(CheckResult result) const
{
    return static_cast<int>(std::ranges::count(checks, result, &CheckEntry::result));
}

std::string in_words(const std::string& name)
{
    std::string words;
    for (const char c : name) {
        if (std::isupper(static_cast<unsigned char>(c)) != 0 && !words.empty()) words += ' ';
        words += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    if (!words.empty()) words[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(words[0])));
    return words;
}

Report& the_report()
{
    static Report report;
    return report;
}

std::unique_ptr<testing::TestEventListener> make_reporter()
{
    return std::make_unique<Reporter>();
}

Picture steady_picture(HWND window)
{
    constexpr int kMostLooks = 20;
    constexpr DWORD kBetweenLooks = 50;  // milliseconds
    Picture picture = repainted(window);
    for (int looks = 0; looks < kMostLooks; ++looks) {
        Sleep(kBetweenLooks);
        Picture later(window);
        if (later == picture) break;
        picture = std::move(later);
    }
    return picture;
}

void show_picture(const std::string& title, HWND window)
{
    const Picture picture = steady_picture(window);
    the_report().checks.back().pictures.push_back({title, png_of(picture), picture.width(), picture.height()});
}

void note(const std::string& line)
{
    the_report().checks.back().notes.push_back(line);
}

bool write_report(const std::string& folder)
{
    const Report& report = the_report();
    const bool is_written =
        write_file(folder + "\\report.html", html_of(report)) && write_file(folder + "\\report.json", json_of(report));
    if (is_written)
        std::printf("\nThe report is in %s\\report.html.\n", folder.c_str());
    else
        std::printf("\nThe report cannot be written to %s. Unpack the kit into a folder of your own.\n",
                    folder.c_str());
    std::printf("%d not shown here\n", report.count(CheckResult::not_shown));
    std::printf("%d passed, %d failed\n", report.count(CheckResult::passed), report.count(CheckResult::failed));
    std::fflush(stdout);
    return is_written;
}
