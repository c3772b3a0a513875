// The two files of a report.
#pragma once

#include <string>

struct Report;

// One page that needs nothing beside it: styles and pictures are inside, and whatever a check said is escaped.
std::string html_of(const Report& report);

// For programs: the facts, the counts, and every check with its result, text, notes and the titles of its pictures.
std::string json_of(const Report& report);
