// Stands in for the wallet application where a test needs a running one: a top-level window of its class that counts
// the messages that tell it to read the registry of paynames again, and a holder of the lock that both programs share.
//
//   vaultry_stand_in.exe COUNT_FILE [--show hidden|visible|minimised] [--hold-lock-until FILE]
//
// COUNT_FILE holds the count as decimal text. It is written first when everything else is ready: the window is there
// and, if asked for, the lock is held. The lock is let go when FILE appears. The program ends with its window.
#include <windows.h>

#include <shellapi.h>

#include <optional>
#include <string>
#include <utility>

namespace {

constexpr wchar_t kWindowClass[] = L"CorvaneVaultryShell";
constexpr wchar_t kPaynameAccepted[] = L"Corvane.PaynameAccepted";
constexpr UINT_PTR kLookForReleaseFile = 1;
constexpr UINT kLookEveryMilliseconds = 20;

struct Request {
    std::wstring count_file;
    std::wstring release_file;  // empty: the lock is left alone
    int show = SW_HIDE;
};

// Why the program ended before it was ready, as its exit code.
enum Failure { kBadCommandLine = 2, kNoLock = 3, kNoWindow = 4, kNoCountFile = 5 };

std::optional<int> show_command(const std::wstring& word)
{
    if (word == L"hidden") return SW_HIDE;
    if (word == L"visible") return SW_SHOWNORMAL;
    if (word == L"minimised") return SW_SHOWMINIMIZED;
    return std::nullopt;
}

std::optional<Request> read_command_line()
{
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (words == nullptr || count < 2 || count % 2 != 0) return std::nullopt;
    Request request;
    request.count_file = words[1];
    for (int i = 2; i + 1 < count; i += 2) {
        const std::wstring option = words[i];
        if (option == L"--hold-lock-until") {
            request.release_file = words[i + 1];
        } else if (const auto show = show_command(words[i + 1]); option == L"--show" && show) {
            request.show = *show;
        } else {
            return std::nullopt;
        }
    }
    return request;
}

// The exclusive lock on the first byte of "wallets.lock" in the data directory that both programs share.
class SharedLock {
public:
    bool take()
    {
        wchar_t base[MAX_PATH];
        const DWORD length = GetEnvironmentVariableW(L"LOCALAPPDATA", base, MAX_PATH);
        if (length == 0 || length >= MAX_PATH) return false;
        const std::wstring folder = std::wstring(base) + L"\\Corvane";
        CreateDirectoryW(folder.c_str(), nullptr);
        file_ = CreateFileW((folder + L"\\wallets.lock").c_str(), GENERIC_READ | GENERIC_WRITE,
                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        OVERLAPPED from_start{};
        return file_ != INVALID_HANDLE_VALUE && LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &from_start);
    }

    void release()
    {
        OVERLAPPED from_start{};
        UnlockFileEx(file_, 0, 1, 0, &from_start);
        CloseHandle(std::exchange(file_, INVALID_HANDLE_VALUE));
    }

private:
    HANDLE file_ = INVALID_HANDLE_VALUE;
};

Request request;
SharedLock shared_lock;
UINT payname_accepted = 0;
unsigned accepted_count = 0;

// Replaced whole, so that a reader never sees half of it.
bool write_count()
{
    const std::string text = std::to_string(accepted_count);
    const std::wstring fresh = request.count_file + L".new";
    HANDLE file = CreateFileW(fresh.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    const BOOL done = WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
    return done && MoveFileExW(fresh.c_str(), request.count_file.c_str(), MOVEFILE_REPLACE_EXISTING);
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
        if (GetFileAttributesW(request.release_file.c_str()) != INVALID_FILE_ATTRIBUTES) {
            KillTimer(window, kLookForReleaseFile);
            shared_lock.release();
        }
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
    return CreateWindowExW(0, kWindowClass, L"Vaultry", WS_OVERLAPPEDWINDOW, 40, 40, 360, 240, nullptr, nullptr,
                           instance, nullptr);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int)
{
    const auto asked = read_command_line();
    if (!asked) return kBadCommandLine;
    request = *asked;

    const bool holds_lock = !request.release_file.empty();
    if (holds_lock && !shared_lock.take()) return kNoLock;

    payname_accepted = RegisterWindowMessageW(kPaynameAccepted);
    HWND window = make_window(instance);
    if (window == nullptr) return kNoWindow;
    ShowWindow(window, request.show);
    if (holds_lock) SetTimer(window, kLookForReleaseFile, kLookEveryMilliseconds, nullptr);
    if (!write_count()) return kNoCountFile;

    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}
