#include "windows_kit/report.h"
#include "windows_kit/report_files.h"

#include "text/json.h"

namespace {

const char* name_of(CheckResult result)
{
    switch (result) {
    case CheckResult::passed:
        return "passed";
    case CheckResult::failed:
        return "failed";
    case CheckResult::not_shown:
        return "not shown here";
    }
    return "";
}

nlohmann::json entry_of(const CheckEntry& check)
{
    nlohmann::json titles = nlohmann::json::array();
    for (const ShownPicture& picture : check.pictures)
        titles.push_back(picture.title);
    return {{"check", check.area + "." + check.name},
            {"result", name_of(check.result)},
            {"text", check.text},
            {"notes", check.notes},
            {"pictures", titles},
            {"milliseconds", check.milliseconds}};
}

}  // namespace

std::string json_of(const Report& report)
{
    nlohmann::json facts = nlohmann::json::object();
    for (const auto& [name, value] : report.facts)
        facts[name] = value;
    nlohmann::json checks = nlohmann::json::array();
    for (const CheckEntry& check : report.checks)
        checks.push_back(entry_of(check));
    return pretty_json({{"facts", facts},
                        {"passed", report.count(CheckResult::passed)},
                        {"failed", report.count(CheckResult::failed)},
                        {"not_shown_here", report.count(CheckResult::not_shown)},
                        {"checks", checks}}) +
           "\n";
}
