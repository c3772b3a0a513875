// Where the program and libcurl meet, as the linker's option --wrap lets a test see it. What a test sets ends with it.
#pragma once

#include <curl/curl.h>

#include <map>
#include <string>

// From now on libcurl has no handle to give.
void refuse_handles();

// From now on libcurl does not know the option.
void refuse_option(CURLoption option);

// From now on there is no memory for an entry of a list that begins like this.
void refuse_lists_with(const std::string& beginning);

// Every option that the test has had set so far on any handle, with its last value; 0 for one that takes a pointer.
const std::map<CURLoption, long>& options_set();

// How many blocks wiping_free has freed so far in the test.
int wiped_blocks();
