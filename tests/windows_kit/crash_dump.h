// Dumps of running programs.
#pragma once

#include <windows.h>

#include <string>

// Writes what `options` (MINIDUMP_TYPE) ask for into a file; the test fails when that cannot be done, or when the dump
// lacks the stack of a thread that goes on.
void write_dump(HANDLE process, const std::wstring& path, int options);
