#include "windows_kit/options.h"

namespace {

constexpr char kPrograms[] = "--programs=";
constexpr char kInside[] = "--inside=";
constexpr char kAgreesToHighContrast[] = "--agrees-to-high-contrast";
constexpr char kAgreesToAuthority[] = "--agrees-to-authority";

bool take_value(const std::string& word, const std::string& name, std::string& value)
{
    if (!word.starts_with(name)) return false;
    value = word.substr(name.size());
    return true;
}

bool take_flag(const std::string& word, const char* name, bool& flag)
{
    if (word != name) return false;
    flag = true;
    return true;
}

bool take(const std::string& word, Options& options)
{
    if (word.starts_with("--gtest_")) {
        options.for_googletest.push_back(word);
        return true;
    }
    return take_flag(word, "--yes", options.yes) || take_flag(word, "--no-questions", options.no_questions) ||
           take_flag(word, "--as-windows", options.as_windows) || take_flag(word, "--ask", options.ask) ||
           take_value(word, kPrograms, options.programs) ||
           take_flag(word, kAgreesToHighContrast, options.agrees_to_high_contrast) ||
           take_flag(word, kAgreesToAuthority, options.agrees_to_authority) ||
           take_value(word, kInside, options.inside);
}

}  // namespace

std::optional<Options> read_options(const std::vector<std::string>& words, std::string& unknown)
{
    Options options;
    for (const std::string& word : words) {
        if (take(word, options)) continue;
        unknown = word;
        return std::nullopt;
    }
    return options;
}

std::vector<std::string> words_for_inside(const Options& options)
{
    std::vector<std::string> words = options.for_googletest;
    words.push_back(kInside + options.inside);
    if (!options.programs.empty()) words.push_back(kPrograms + options.programs);
    if (options.as_windows) words.emplace_back("--as-windows");
    if (options.agrees_to_high_contrast) words.emplace_back(kAgreesToHighContrast);
    if (options.agrees_to_authority) words.emplace_back(kAgreesToAuthority);
    return words;
}

Options& the_options()
{
    static Options options;
    return options;
}
