#include "platform/pause.h"

#include <windows.h>

void pause(std::chrono::milliseconds duration)
{
    Sleep(static_cast<DWORD>(duration.count()));
}
