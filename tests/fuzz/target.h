// What fuzzing is made of: one target for every reader of bytes that come from outside. A target states a property that
// holds whatever the bytes are, and ends the process at once when it does not.
//
// The same sources make two kinds of programs: libFuzzer's, which look for bytes that break the property
// (scripts/fuzz), and the replay, with which every test run proves it again for the bytes kept under corpus/.
#pragma once

#include <string_view>
#include <vector>

struct FuzzTarget {
    // A target is a constant of its source file, and known from then on.
    FuzzTarget(const char* file_name, void (*check_bytes)(std::string_view bytes));

    const char* name;  // of its source file and of its folder under corpus/
    void (*check)(std::string_view bytes);
};

// The targets that are linked into this program, in no order.
const std::vector<FuzzTarget>& fuzz_targets();

// Says what does not hold and aborts, which is what libFuzzer takes for a finding.
void require(bool holds, const char* what);
