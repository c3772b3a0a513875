// One connect or site flow at a time.
#pragma once

#include "app/workers.h"

// Takes what the user typed, saves the settings and starts `flow` for the pressed `button`; while another one runs it
// only says so in the status line.
void start_guarded_flow(int button, Flow flow);

// The running flow has reported: the buttons are as they were.
void clear_busy();
