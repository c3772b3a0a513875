// One copy of the program per desktop.
#pragma once

// Brings the copy that already runs to the front, restored when it was minimised; false when there is none.
bool bring_running_copy_forward();
