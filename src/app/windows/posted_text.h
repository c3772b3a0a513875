// A text on its way from a worker to the window. The message carries the text's address; but any program of the desktop
// may post the same message with any number in it. So every text that is under way stands in a list, which owns it: a
// successful post puts it there, the receiver takes it from there, once, and an address that is not there is nothing.
#pragma once

#include <windows.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

template <typename Text>
class TextsUnderWay {
public:
    bool post(HWND window, UINT message, std::unique_ptr<Text> text)
    {
        const auto address = reinterpret_cast<LPARAM>(text.get());
        const std::scoped_lock lock(m_mutex);  // nobody takes the text before it is known whether it was posted
        if (PostMessageW(window, message, 0, address) == 0) return false;
        m_texts.push_back(std::move(text));
        return true;
    }

    std::unique_ptr<Text> take(LPARAM address)
    {
        const std::scoped_lock lock(m_mutex);
        const auto found = std::ranges::find(m_texts, reinterpret_cast<Text*>(address), &std::unique_ptr<Text>::get);
        if (found == m_texts.end()) return nullptr;
        std::unique_ptr<Text> text = std::move(*found);
        m_texts.erase(found);
        return text;
    }

private:
    std::mutex m_mutex;
    std::vector<std::unique_ptr<Text>> m_texts;
};

// One list for each type of text, so that no message passes one type off as another.
template <typename Text>
TextsUnderWay<Text>& texts_under_way()
{
    static TextsUnderWay<Text> texts;
    return texts;
}

// The sender's side, on any thread; `text` is not null. False, with the text freed, when the window is gone or its
// queue is full.
template <typename Text>
bool post_text(HWND window, UINT message, std::unique_ptr<Text> text)
{
    return texts_under_way<Text>().post(window, message, std::move(text));
}

// The receiver's side; null when `lparam` is not the address of a text that post_text has posted and nobody has taken.
template <typename Text>
std::unique_ptr<Text> take_text(LPARAM lparam)
{
    return texts_under_way<Text>().take(lparam);
}
