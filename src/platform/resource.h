// Data that the executable carries inside itself.
#pragma once

#include <string_view>

// The bytes of the RCDATA resource `id`; empty when there is none. They live as long as the process.
std::string_view load_resource(int id);
