// What the process asks Windows to refuse it from now on, so that a planted file or a damaged heap ends it instead of
// being used. What was left out, and why, stands in docs/security.md.
#pragma once

// For the start of the process, before anything else. An older Windows that lacks one of these protections goes on
// without it.
void harden_process();

// Keeps the heap, where wallet and login are while they are used, out of the error reports that Windows makes of this
// process from now on (WerSetFlags). A Windows without that function goes on as it is.
void keep_heap_out_of_crash_reports();
