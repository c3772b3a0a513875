// The private messages by which worker threads report to the main window. Workers never touch a control.
#pragma once

#include <windows.h>

inline constexpr UINT MsgConnectResult = WM_APP + 1;  // lParam: heap std::string, owned by the receiver
inline constexpr UINT MsgFlowResult = WM_APP + 2;     // lParam: heap std::wstring or null, owned by the receiver
inline constexpr UINT MsgUpdateResult = WM_APP + 3;   // wParam: newest announced build + 1, 0 when nothing was found
inline constexpr UINT MsgShowPackage = WM_APP + 4;    // no payload: show the plugin package
