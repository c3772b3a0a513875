// Stands in for the wallet application where a test needs a running one: a top-level window of its class that counts
// the messages that tell it to read the kept names again, a holder of the lock that both programs share, and
// a user who answers connect requests.
//
//   vaultry_stand_in.exe COUNT_FILE [--show hidden|visible|minimised] [--hold-lock-until FILE] [--connect ANSWER]
//
// COUNT_FILE holds the count as decimal text. It is written first when everything else is ready: the window is there
// and, if asked for, the lock is held. The lock is let go when FILE appears. ANSWER is given to every connect request
// that has no reply yet: approve:WALLET_ID, approve (which names no wallet), deny, or raw:TEXT, the reply's bytes; a
// request that is not as both programs have agreed ends the program. It ends with its window otherwise.
//
// A copy that is called Vaultry.exe and started without a parameter, as the program under test starts it, takes the
// parameters from the environment variable VAULTRY_ORDERS.
#include "connect_answers.h"
#include "orders.h"

#include <windows.h>

#include <optional>
#include <string>
#include <utility>

namespace {

constexpr wchar_t kWindowClass[] = L"CorvaneVaultryShell";
constexpr wchar_t kPaynameAccepted[] = L"Corvane.PaynameAccepted";
constexpr UINT_PTR kLookAround = 1;
constexpr UINT kLookEveryMilliseconds = 20;

// Why the program ended on its own, as its exit code.
enum Failure { kBadOrders = 2, kNoLock = 3, kNoWindow = 4, kNoCountFile = 5, kBadRequest = 6 };

// Empty when the environment names no folder for the local application data.
std::wstring data_directory()
{
    wchar_t base[MAX_PATH];
    const DWORD length = GetEnvironmentVariableW(L"LOCALAPPDATA", base, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return {};
    return std::wstring(base) + L"\\Corvane";
}

// The exclusive lock on the first byte of "wallets.lock" in the data directory that both programs share.
class SharedLock {
public:
    bool take()
    {
        const std::wstring folder = data_directory();
        if (folder.empty()) return false;
        CreateDirectoryW(folder.c_str(), nullptr);
        file_ = CreateFileW((folder + L"\\wallets.lock").c_str(), GENERIC_READ | GENERIC_WRITE,
                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        OVERLAPPED from_start{};
        return file_ != INVALID_HANDLE_VALUE && LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &from_start);
    }

    bool is_held() const { return file_ != INVALID_HANDLE_VALUE; }

    void release()
    {
        OVERLAPPED from_start{};
        UnlockFileEx(file_, 0, 1, 0, &from_start);
        CloseHandle(std::exchange(file_, INVALID_HANDLE_VALUE));
    }

private:
    HANDLE file_ = INVALID_HANDLE_VALUE;
};

Orders orders;
SharedLock shared_lock;
UINT payname_accepted = 0;
unsigned accepted_count = 0;

// Replaced whole, so that a reader never sees half of it.
bool write_count()
{
    const std::string text = std::to_string(accepted_count);
    const std::wstring fresh = orders.count_file + L".new";
    HANDLE file = CreateFileW(fresh.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    const BOOL done = WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
    return done && MoveFileExW(fresh.c_str(), orders.count_file.c_str(), MOVEFILE_REPLACE_EXISTING);
}

void look_around()
{
    if (shared_lock.is_held() && GetFileAttributesW(orders.release_file.c_str()) != INVALID_FILE_ATTRIBUTES)
        shared_lock.release();
    if (orders.reply && !answer_requests(data_directory(), *orders.reply)) PostQuitMessage(kBadRequest);
}

LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message == payname_accepted) {
        ++accepted_count;
        write_count();
        return 0;
    }
    switch (message) {
    case WM_TIMER:
        look_around();
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, first, second);
    }
}

HWND make_window(HINSTANCE instance)
{
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = window_procedure;
    window_class.hInstance = instance;
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    window_class.lpszClassName = kWindowClass;
    RegisterClassW(&window_class);
    return CreateWindowExW(0, kWindowClass, L"Vaultry", WS_OVERLAPPEDWINDOW, 1000, 40, 360, 240, nullptr, nullptr,
                           instance, nullptr);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int)
{
    const auto given = read_orders();
    if (!given) return kBadOrders;
    orders = *given;

    const bool holds_lock = !orders.release_file.empty();
    if (holds_lock && !shared_lock.take()) return kNoLock;

    payname_accepted = RegisterWindowMessageW(kPaynameAccepted);
    HWND window = make_window(instance);
    if (window == nullptr) return kNoWindow;
    ShowWindow(window, orders.show);
    SetTimer(window, kLookAround, kLookEveryMilliseconds, nullptr);
    if (!write_count()) return kNoCountFile;

    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}
