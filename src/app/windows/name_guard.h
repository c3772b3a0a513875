// The name guard in the main window: a look at the kept names after each start, another one when the user presses the
// line of kept names, and what both come to. All of it runs on the user-interface thread.
#pragma once

#include "app/windows/workers.h"

// Looks at the names behind the user's back: only a name that pays somebody else is told.
void start_name_guard();

// The user asks, and is told whatever the look finds.
void on_kept_names_pressed();

// What the user does now goes first: no further request is sent, and nothing of a look that runs is told.
void stop_name_guard();

void on_guard_result(const GuardResult& result);
void on_name_kept(const KeptName& kept);
