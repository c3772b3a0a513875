#include "platform/wallet_app.h"

#include <windows.h>

void notify_wallet_app()
{
    const HWND window = FindWindowW(L"CorvaneVaultryShell", nullptr);
    if (window != nullptr) PostMessageW(window, RegisterWindowMessageW(L"Corvane.PaynameAccepted"), 0, 0);
}
