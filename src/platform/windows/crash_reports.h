// What Windows may take along when the program crashes.
#pragma once

// Keeps the heap, where wallet and login are while they are used, out of the error reports that Windows makes of this
// process from now on (WerSetFlags). A Windows without that function goes on as it is.
void keep_heap_out_of_crash_reports();
