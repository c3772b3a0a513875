#include "windows_kit/report.h"
#include "windows_kit/report_files.h"

#include "text/ascii.h"

#include <string_view>

namespace {

constexpr char kHead[] = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Brasslet on this Windows</title>
<style>
body { margin: 0 auto; padding: 1.5rem; max-width: 60rem; font: 16px/1.5 "Segoe UI", system-ui, sans-serif;
  color: #1c2430; background: #fff; overflow-wrap: anywhere; }
h1 { margin: 0 0 .25rem; font-size: 1.6rem; }
h2 { margin: 2rem 0 .5rem; font-size: 1.2rem; border-bottom: 1px solid #d5dbe3; }
.verdict { font-size: 1.2rem; font-weight: 600; }
table { border-collapse: collapse; }
th, td { padding: .15rem 1rem .15rem 0; text-align: left; vertical-align: top; }
th { font-weight: 600; white-space: nowrap; }
ul { margin: 0; padding: 0; list-style: none; }
li { margin: .5rem 0; padding: .5rem .75rem; border-left: .3rem solid #2e7d4f; background: #f6f8fa; }
li.failed { border-color: #b3261e; background: #fdf3f2; }
li.not-shown { border-color: #8a93a0; }
.result { font-weight: 600; }
.failed > .result { color: #b3261e; }
.passed > .result { color: #22663f; }
.took { color: #5a6675; }
pre { margin: .5rem 0 0; white-space: pre-wrap; font: 14px/1.4 Consolas, monospace; }
figure { margin: .75rem 0 0; }
img { display: block; max-width: 100%; height: auto; border: 1px solid #d5dbe3; }
figcaption, .notes { color: #3c4756; }
@media (max-width: 30rem) { body { padding: .75rem; } th, td { display: block; padding: 0; } td { margin-bottom: .4rem; } }
</style>
</head>
<body>
)";

std::string escaped(std::string_view text)
{
    std::string safe;
    for (const char c : text) {
        switch (c) {
        case '&':
            safe += "&amp;";
            break;
        case '<':
            safe += "&lt;";
            break;
        case '>':
            safe += "&gt;";
            break;
        case '"':
            safe += "&quot;";
            break;
        default:
            safe += c;
        }
    }
    return safe;
}

std::string seconds(long long milliseconds)
{
    return std::to_string(milliseconds / 1000) + "." + std::to_string(milliseconds % 1000 / 100) + " s";
}

std::string picture_html(const ShownPicture& picture)
{
    return "<figure><img alt=\"" + escaped(picture.title) + "\" width=\"" + std::to_string(picture.width) +
           "\" height=\"" + std::to_string(picture.height) + "\" src=\"data:image/png;base64," +
           base64_encode(picture.png) + "\"><figcaption>" + escaped(picture.title) + "</figcaption></figure>\n";
}

std::string check_html(const CheckEntry& check)
{
    const char* style = "passed";
    const char* word = "Passed";
    if (check.result == CheckResult::failed) {
        style = "failed";
        word = "Failed";
    } else if (check.result == CheckResult::not_shown) {
        style = "not-shown";
        word = "Not shown here";
    }
    std::string html = std::string("<li class=\"") + style + "\"><span class=\"result\">" + word + ":</span> " +
                       escaped(check.sentence) + " <span class=\"took\">(" + escaped(check.area + "." + check.name) +
                       ", " + seconds(check.milliseconds) + ")</span>\n";
    if (!check.text.empty()) html += "<pre>" + escaped(check.text) + "</pre>\n";
    for (const std::string& line : check.notes)
        html += "<div class=\"notes\">" + escaped(line) + "</div>\n";
    for (const ShownPicture& picture : check.pictures)
        html += picture_html(picture);
    return html + "</li>\n";
}

std::string area_html(const Report& report, const std::string& title, const std::string& area, bool only_failed)
{
    std::string items;
    for (const CheckEntry& check : report.checks)
        if (only_failed ? check.result == CheckResult::failed : check.area == area) items += check_html(check);
    return items.empty() ? "" : "<h2>" + escaped(title) + "</h2>\n<ul>\n" + items + "</ul>\n";
}

}  // namespace

std::string html_of(const Report& report)
{
    const int failed = report.count(CheckResult::failed);
    std::string html = kHead;
    html += "<h1>Brasslet on this Windows</h1>\n<p class=\"verdict\">" +
            std::to_string(report.count(CheckResult::passed)) + " passed, " + std::to_string(failed) + " failed, " +
            std::to_string(report.count(CheckResult::not_shown)) + " not shown here</p>\n<table>\n";
    for (const auto& [name, value] : report.facts)
        html += "<tr><th>" + escaped(name) + "</th><td>" + escaped(value) + "</td></tr>\n";
    html += "</table>\n";
    html += area_html(report, "What failed", "", true);
    std::string before;
    for (const CheckEntry& check : report.checks) {
        if (check.area == before) continue;
        before = check.area;
        html += area_html(report, in_words(check.area), check.area, false);
    }
    return html + "</body>\n</html>\n";
}
