// The wallet application's stand-in, run beside a test.
#pragma once

#include <windows.h>

#include <string>

// Its main window; null when none is there.
HWND vaultry_window();

// Lays a copy into `folder` under the name that the program looks for.
void put_vaultry(const std::wstring& folder);

// What a copy shall do that the program starts; see the stand-in's source.
void set_vaultry_orders(const std::wstring& orders);

// Runs from construction to destruction. `options` follow the name of its count file, which lies in `folder`.
class RunningVaultry {
public:
    RunningVaultry(const std::wstring& folder, const std::wstring& options);
    RunningVaultry(const RunningVaultry&) = delete;
    RunningVaultry& operator=(const RunningVaultry&) = delete;
    ~RunningVaultry();

private:
    HANDLE m_process = nullptr;
};

// Closes the window of a copy that the program has started, and waits until it is gone.
void close_vaultry();
