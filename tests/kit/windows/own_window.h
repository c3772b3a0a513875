// The program's main window, made in the test's own process: what no other process can ask a window for, its fonts
// first of all, is seen here.
#pragma once

#include "app/windows/app_state.h"
#include "kit/test_folder.h"
#include "kit/windows/any_window.h"
#include "kit/windows/replaced_import.h"

#include <functional>
#include <string>

// Answers the messages that wait for this thread.
void answer_messages();

// Answers messages until `condition` holds; false when it still does not after half a minute.
bool comes_true(const std::function<bool()>& condition);

class OwnWindow : public DrivenWindow {
public:
    // Shown and painted, with a state of its own, at the 96 DPI of the test's monitor; expected on one of another DPI.
    explicit OwnWindow(unsigned expected_dpi = kDefaultDpi, const std::function<CardTexts()>& first_texts = card_texts);
    OwnWindow(const OwnWindow&) = delete;
    OwnWindow& operator=(const OwnWindow&) = delete;
    ~OwnWindow();

    RECT rectangle() const;  // on the screen

    // What the system sends to a window that comes to a monitor of `dpi`.
    void change_dpi(unsigned dpi, RECT suggested) const;
    void destroy();  // and removes the message that would have ended the program
};

// Monitors of other resolutions than the test desktop's, as the windows of this process are told of them.
class Monitors {
public:
    // The main window stands on a monitor of `main_dpi`, and every other window on one of `other_dpi`.
    Monitors(UINT main_dpi, UINT other_dpi);

private:
    ReplacedImport<decltype(&GetDpiForWindow)> m_answer;
};
