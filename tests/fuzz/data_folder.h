// The data directory of a target that reads files: one folder for the process, used again for every input. Where
// TMPDIR lies in memory this takes some microseconds.
#pragma once

#include <map>
#include <string>
#include <string_view>

// Every file below the data directory, by its path in it, with its bytes.
using FilesOnDisk = std::map<std::string, std::string>;

// Empties the data directory and sets all of the stand-in for platform/ back.
void empty_data_folder();

// `name` is relative to the data directory; its folders are made.
void put_file(const std::string& name, std::string_view bytes);

FilesOnDisk files_on_disk();
