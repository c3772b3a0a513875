// Worker threads, and what they post to the main window. Workers are detached, never joined, and never touch a control.
#pragma once

#include "flows/name_guard.h"
#include "settings/settings_store.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

// The private messages of the main window. Other programs can post the same numbers: what they carry is read with
// receive_text.
inline constexpr UINT MsgConnectResult = WM_APP + 1;  // lParam: heap std::string that post_text has posted
inline constexpr UINT MsgFlowResult = WM_APP + 2;     // lParam: heap std::wstring that post_text has posted
inline constexpr UINT MsgUpdateResult = WM_APP + 3;   // wParam: newest announced build + 1, 0 when nothing was found
inline constexpr UINT MsgShowPackage = WM_APP + 4;    // no payload: show the plugin package
inline constexpr UINT MsgGuardResult = WM_APP + 5;    // lParam: heap GuardResult that post_text has posted
inline constexpr UINT MsgNameKept = WM_APP + 6;       // lParam: heap KeptName that post_text has posted

// One of the things the user can have done on the site: decides everything and returns the sentence to show, UTF-8.
// Runs on a worker thread.
using Flow = std::function<std::string(const SiteSettings& settings)>;

// Runs `flow` on a worker thread with its own copy of the settings, then posts exactly one MsgFlowResult to `window`.
void start_flow(HWND window, const Flow& flow, const SiteSettings& settings);

// Asks the wallet application for a wallet, then posts exactly one MsgConnectResult to `window`.
void start_connecting(HWND window);

// Looks on a worker thread for the newest build that the maker announces, then posts MsgUpdateResult to `window`.
// Nobody hears of it when the window is gone by then.
void start_update_check(HWND window);

// A look at the kept names, as the window shares it with its worker.
struct RunningLook {
    std::atomic<bool> goes_on = true;  // false: no further request is sent
};

struct GuardResult {
    std::shared_ptr<const RunningLook> look;
    PublicIdentity wallet;  // whose names they are
    std::vector<LookedAtName> names;
};

// Looks at the kept names of the connected wallet on a worker thread, then posts exactly one MsgGuardResult to
// `window`.
void start_name_look(HWND window, const std::shared_ptr<const RunningLook>& look);

// A payname that a publish has just seen to resolve to this wallet.
struct KeptName {
    std::string payname;
};

// Whether a worker has not come to its end yet.
bool worker_is_running();

// The strings, or other results, on their way from a worker to the window. The message carries the object's address;
// but any program of the desktop may post the same message with any number in it. So every object that is under way
// stands in a list, which owns it: a successful post puts it there, the receiver gets it out of there, once, and an
// address that is not in the list is ignored.
template <typename Text>
class TextsUnderWay {
public:
    bool post(HWND window, UINT message, std::unique_ptr<Text> text)
    {
        const auto address = reinterpret_cast<LPARAM>(text.get());
        const std::scoped_lock lock(m_mutex);  // nobody receives it before it is known whether it was posted
        if (PostMessageW(window, message, 0, address) == 0) return false;
        m_texts.push_back(std::move(text));
        return true;
    }

    std::unique_ptr<Text> receive(LPARAM address)
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

// One list for each type of string, so that no message passes one type off as another.
template <typename Text>
TextsUnderWay<Text>& texts_under_way()
{
    static TextsUnderWay<Text> texts;
    return texts;
}

// The sender's side, on any thread; `text` is not null. False, with the string freed, when the window is gone or its
// queue is full.
template <typename Text>
bool post_text(HWND window, UINT message, std::unique_ptr<Text> text)
{
    return texts_under_way<Text>().post(window, message, std::move(text));
}

// The receiver's side; null when `lparam` is not the address of a string that post_text has posted and nobody has
// received.
template <typename Text>
std::unique_ptr<Text> receive_text(LPARAM lparam)
{
    return texts_under_way<Text>().receive(lparam);
}
