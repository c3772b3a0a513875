// The checks run in a process of their own, whose data folder is the kit's: the tester's own files are never touched.
#pragma once

struct Options;

// In the process that was started by hand: refuses where the tester's own program would be met, asks the tester, and
// starts the checks inside a fresh folder, which it removes afterwards. The exit status: 0 when every check passed.
int run_guarded(Options options);

// In the process that runs the checks: whether Brasslet, which asks the environment as this process does, will keep its
// files in the folder that `options` name.
bool keeps_to_own_folder(const Options& options);
