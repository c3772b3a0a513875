// What check.exe was asked for on its command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct Options {
    bool yes = false;           // --yes: the tester agrees to everything
    bool no_questions = false;  // --no-questions: to nothing
    bool ask = false;           // --ask: the answers come from the input, whatever that is
    bool as_windows = false;    // --as-windows: checks that this system is known to fail run all the same
    std::string programs;       // --programs=FILTER: of the test programs only these tests
    std::vector<std::string> for_googletest;

    // Of the process that runs the checks. The one that was started by hand starts it with a data folder of its own.
    std::string inside;  // --inside=FOLDER
    bool agrees_to_high_contrast = false;
    bool agrees_to_authority = false;
};

// Nothing when a word is not known, which `unknown` then says.
std::optional<Options> read_options(const std::vector<std::string>& words, std::string& unknown);

// The same options for the process that runs the checks.
std::vector<std::string> words_for_inside(const Options& options);

// Of this process; set once by main.
Options& the_options();
