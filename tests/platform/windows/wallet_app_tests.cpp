// The word to the wallet application, to a window of its class in this process.
#include "platform/wallet_app.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace {

HWND make_wallet_window(const wchar_t* title)
{
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = DefWindowProcW;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = L"CorvaneVaultryShell";
    RegisterClassW(&window_class);
    return CreateWindowExW(0, window_class.lpszClassName, title, WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr, nullptr,
                           window_class.hInstance, nullptr);
}

}  // namespace

TEST(WalletApp, IsToldOnceByTheRegisteredMessageWithoutParameters)
{
    const UINT accepted = RegisterWindowMessageW(L"Corvane.PaynameAccepted");
    HWND window = make_wallet_window(L"Vaultry, whatever its title");
    ASSERT_NE(window, nullptr);
    notify_wallet_app();
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, window, accepted, accepted, PM_REMOVE));
    EXPECT_EQ(message.wParam, 0U);
    EXPECT_EQ(message.lParam, 0);
    EXPECT_FALSE(PeekMessageW(&message, window, accepted, accepted, PM_REMOVE));
    DestroyWindow(window);
}

TEST(WalletApp, IsNotMissedWhenItDoesNotRun)
{
    const UINT accepted = RegisterWindowMessageW(L"Corvane.PaynameAccepted");
    HWND other = CreateWindowExW(0, L"STATIC", L"CorvaneVaultryShell", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr,
                                 nullptr, nullptr, nullptr);
    notify_wallet_app();
    MSG message{};
    EXPECT_FALSE(PeekMessageW(&message, nullptr, accepted, accepted, PM_REMOVE));
    DestroyWindow(other);
}
