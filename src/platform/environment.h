// The process and its surroundings: its folders, the resources of its executable, and pausing.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

// The folder of the user's local application data, narrow UTF-8; empty when the environment does not name it.
std::string local_app_data();

// The folder that holds the program's own executable, without a trailing separator, narrow UTF-8.
std::string executable_folder();

// Makes that folder the current one, so that relative paths mean files beside the program.
void enter_executable_folder();

// The bytes of the RCDATA resource `id` of the executable; empty when there is none. They live as long as the process.
std::string_view load_resource(int id);

// Holds this thread up; never call it on the user-interface thread.
void pause(std::chrono::milliseconds duration);
