// Every button of both windows, pressed by whoever can.
#pragma once

#include "kit/windows/running_program.h"

#include <functional>

// Starts the program, presses one button after the other by `press`, sees what each does, and ends with Close.
void expect_every_button_works(const std::function<void(HWND)>& press);
