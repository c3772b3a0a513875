// The least that a program with a window can be: one window that paints itself. What the start and the memory of
// Brasslet are measured against.
#include "bench/floor_window.h"

namespace {

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    switch (message) {
    case WM_PAINT: {
        PAINTSTRUCT paint{};
        const HDC dc = BeginPaint(window, &paint);
        RECT client{};
        GetClientRect(window, &client);
        FillRect(dc, &client, GetSysColorBrush(COLOR_WINDOW));
        DrawTextW(dc, L"A bare window", -1, &client, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
        EndPaint(window, &paint);
        return 0;
    }
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, wparam, lparam);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, PSTR, int show)
{
    run_window({L"BenchBareWindow", L"Bare", procedure, nullptr, WS_OVERLAPPEDWINDOW, 600}, instance, show);
    return 0;
}
