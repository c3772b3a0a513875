#include "windows_kit/tester.h"

#include "windows_kit/options.h"

#include <windows.h>

#include <cstdio>
#include <iostream>
#include <string>

namespace {

bool can_be_asked()
{
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
}

// Asked again until the answer is one of the two; the end of the input is a no.
bool says_yes_to(const char* question)
{
    std::string answer;
    do {
        std::printf("\n%s\nType y for yes or n for no, and press Enter: ", question);
        std::fflush(stdout);
        if (!std::getline(std::cin, answer)) return false;
    } while (answer.find_first_of("yYnN") == std::string::npos);
    return answer.find_first_of("yYnN") == answer.find_first_of("yY");
}

}  // namespace

void ask_tester(Options& options)
{
    options.agrees_to_authority = options.agrees_to_high_contrast = options.yes;
    if (options.yes || options.no_questions || !(options.ask || can_be_asked())) return;
    options.agrees_to_authority = says_yes_to(
        "May Windows trust a certificate authority of the kit's own, for you alone and only while the checks run?\n"
        "Without it Brasslet cannot be shown with a site. Its key is made now, is kept in memory only, and is gone\n"
        "with the checks. Windows asks once more by itself, and again when the authority is taken away.");
    options.agrees_to_high_contrast =
        says_yes_to("May the checks switch Windows' high contrast on for a few seconds, and off again?");
    std::printf("\n");
}

bool tester_agrees_to_high_contrast()
{
    return the_options().agrees_to_high_contrast;
}

bool tester_agrees_to_trust_the_authority()
{
    return the_options().agrees_to_authority;
}
