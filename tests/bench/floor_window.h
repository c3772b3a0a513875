// The one window of a program that Brasslet's start and memory are measured against.
#pragma once

#include <windows.h>

struct FloorWindow {
    const wchar_t* window_class;
    const wchar_t* title;
    WNDPROC procedure;  // posts WM_QUIT when the window is destroyed
    HBRUSH background;  // null when the procedure paints all of it
    DWORD style;
    int height;  // outer, in pixels
};

// Shows the window, painted, and answers its messages until it is closed.
inline void run_window(const FloorWindow& floor, HINSTANCE instance, int show)
{
    WNDCLASSEXW window_class{};
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = floor.procedure;
    window_class.hInstance = instance;
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.hbrBackground = floor.background;
    window_class.lpszClassName = floor.window_class;
    RegisterClassExW(&window_class);
    const HWND window = CreateWindowExW(0, floor.window_class, floor.title, floor.style, CW_USEDEFAULT, CW_USEDEFAULT,
                                        760, floor.height, nullptr, nullptr, instance, nullptr);
    ShowWindow(window, show);
    UpdateWindow(window);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
}
