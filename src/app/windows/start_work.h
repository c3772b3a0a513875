// What the start does that needs no window: on a thread of its own, while the user-interface thread makes the window.
#pragma once

#include "app/card_texts.h"
#include "settings/site_settings.h"

#include <thread>

struct FoundAtStart {
    SiteSettings settings;
    SettingsNotice notice = SettingsNotice::none;  // of the settings file
    CardTexts cards;
};

class StartWork {
public:
    // Begins to bind the wallet, read the settings and ask for the texts of the cards, in this order.
    StartWork();
    StartWork(const StartWork&) = delete;
    StartWork& operator=(const StartWork&) = delete;
    ~StartWork();  // waits for the end of the work

    const FoundAtStart& wait();

private:
    void run();

    FoundAtStart m_found;
    std::thread m_thread;
};
