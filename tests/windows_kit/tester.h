// The person at the machine: what they are asked before the first check, and what they have agreed to.
#pragma once

struct Options;

// Asks in plain words, at the console, and notes the answers in `options`. Without a console to type at nobody is
// asked, and the answer is no.
void ask_tester(Options& options);

// Windows' high contrast may be switched on for a few seconds, and off again.
bool tester_agrees_to_high_contrast();

// This Windows user may trust the authority of the kit's site while the checks run.
bool tester_agrees_to_trust_the_authority();
