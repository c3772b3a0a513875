// The program's life: prepare the process, open the window, answer messages until it closes.
#include "app/windows/app_state.h"
#include "app/windows/main_window.h"
#include "app/windows/name_guard.h"
#include "app/windows/single_instance.h"
#include "app/windows/start_work.h"
#include "app/windows/workers.h"
#include "platform/environment.h"
#include "platform/windows/process_hardening.h"
#include "platform/windows/shell.h"
#include "platform/windows/windows_version.h"
#include "ui/windows/keyboard.h"

#include <windows.h>

#include <commctrl.h>
#include <shellscalingapi.h>

#include <optional>

namespace {

// Before every other constructor (101 is the first priority that GCC leaves to programs): the guard of the stack asks
// Windows for random bytes in one, and Windows loads libraries by name for that.
[[gnu::constructor(101)]] void harden_before_anything_else()
{
    harden_process();
}

std::optional<unsigned> dpi_under_mouse()
{
    POINT mouse{};
    GetCursorPos(&mouse);
    UINT horizontal = 0;
    UINT vertical = 0;
    const HMONITOR monitor = MonitorFromPoint(mouse, MONITOR_DEFAULTTONEAREST);
    if (FAILED(GetDpiForMonitor(monitor, MDT_EFFECTIVE_DPI, &horizontal, &vertical))) return std::nullopt;
    return horizontal;
}

// The texts of the cards, once the settings are there too.
CardTexts texts_found_by(StartWork& work)
{
    const FoundAtStart& found = work.wait();
    app_state().settings = found.settings;
    app_state().settings_notice = found.notice;
    return found.cards;
}

void open_main_window(HINSTANCE instance, int show, StartWork& work)
{
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    register_main_window_class(instance);
    app_state().dpi = start_dpi(dpi_under_mouse());
    const HWND window = create_main_window(instance, [&work] { return texts_found_by(work); });
    ShowWindow(window, show);
    UpdateWindow(window);
}

void CALLBACK start_workers(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    start_update_check(app_state().main_window);
    start_name_guard();
}

bool is_handled(HWND window, MSG& message)
{
    return window != nullptr && handle_dialog_message(window, message);
}

int answer_messages()
{
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        const AppState& state = app_state();
        if (is_handled(state.settings_window, message) || is_handled(state.main_window, message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, PSTR, int show)
{
    keep_heap_out_of_crash_reports();
    if (!is_on_a_windows_new_enough()) return 0;
    enter_executable_folder();
    std::optional<StartTurn> turn(std::in_place);
    if (bring_running_copy_forward()) return 0;

    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    const ComApartment apartment;
    StartWork work;
    open_main_window(instance, show, work);
    turn.reset();
    // A timer's message comes when the new window is painted and nothing else waits: the first worker needs libcurl,
    // and to set that up takes as long as to make the window.
    SetTimer(nullptr, 0, USER_TIMER_MINIMUM, start_workers);
    const int exit_code = answer_messages();

    // A worker may be in the middle of a request or of a wallet query: nothing that it uses is taken down under it. Nor
    // are the DLLs told of the end, as ExitProcess would: one that waits for a lock which the worker held when it was
    // stopped would keep the process from ever ending.
    if (worker_is_running()) TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exit_code));
    return exit_code;
}
