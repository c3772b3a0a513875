// The settings window as the main window opens it.
#pragma once

void open_settings();

// What stands in the settings window's fields, when it is open, becomes the settings.
void take_open_settings();
