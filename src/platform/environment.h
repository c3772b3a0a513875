// What the process is told by its surroundings.
#pragma once

#include <string>

// The folder of the user's local application data, narrow UTF-8; empty when the environment does not name it.
std::string local_app_data();

// The folder that holds the program's own executable, without a trailing separator, narrow UTF-8.
std::string executable_folder();

// Makes that folder the current one, so that relative paths mean files beside the program.
void enter_executable_folder();
