// A text on its way from a worker to the window: it has one owner at every moment. A successful post hands it to the
// queue, the receiver takes it from there, and a failed post leaves it with the sender, who frees it.
#pragma once

#include <windows.h>

#include <memory>

// The sender's side, on any thread. False, with the text freed, when the window is gone or its queue is full.
template <typename Text>
bool post_text(HWND window, UINT message, std::unique_ptr<Text> text)
{
    const bool is_posted = PostMessageW(window, message, 0, reinterpret_cast<LPARAM>(text.get())) != 0;
    if (is_posted) static_cast<void>(text.release());
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the queue owns the text, which the analyzer cannot see.
    return is_posted;
}

// The receiver's side, once per message; null when the message carried no text.
template <typename Text>
std::unique_ptr<Text> take_text(LPARAM lparam)
{
    return std::unique_ptr<Text>(reinterpret_cast<Text*>(lparam));
}
