// The private messages by which worker threads report to the main window. Workers never touch a control. What a message
// carries is read by app/posted_text.h: other programs can post the same numbers.
#pragma once

#include <windows.h>

inline constexpr UINT MsgConnectResult = WM_APP + 1;  // lParam: heap std::string that post_text has posted
inline constexpr UINT MsgFlowResult = WM_APP + 2;     // lParam: heap std::wstring that post_text has posted
inline constexpr UINT MsgUpdateResult = WM_APP + 3;   // wParam: newest announced build + 1, 0 when nothing was found
inline constexpr UINT MsgShowPackage = WM_APP + 4;    // no payload: show the plugin package
