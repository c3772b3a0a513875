// Where the program and libcurl meet, as the linker's option --wrap lets a test see it.
#pragma once

// From now on libcurl has no handle to give.
void refuse_handles();

// How many blocks were freed by wiping_free so far.
int wiped_blocks();
