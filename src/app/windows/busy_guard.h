// One connect or site flow at a time.
#pragma once

#include "app/windows/workers.h"

// Takes what the user typed, saves the settings and starts `flow` for the pressed `button`; while another one runs it
// only says so in the status line.
void start_guarded_flow(int button, const Flow& flow);

// The same for work that is started otherwise. Tells in the status line, and returns true, that something runs.
bool is_already_working();

// From now on something runs, for the pressed `button`.
void set_busy(int button);

// What ran has reported: the buttons are as they were.
void clear_busy();
