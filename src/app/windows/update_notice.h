// How the main window tells of a newer build: the version label, and one question.
#pragma once

#include <cstdint>

void refresh_version_label();

// What the update check found, kNoBuild included. Asks whether to open the maker's page when it is newer than this
// program; the question has a message loop of its own, and the window may be gone when it returns.
void on_update_result(std::int32_t found);

// The maker's page, when there is an update.
void open_update_page();
