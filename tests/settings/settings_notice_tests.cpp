#include "settings/settings_notice.h"

#include <gtest/gtest.h>

TEST(SettingsNotice, EachIsOneSentenceThatSaysWhatToDo)
{
    EXPECT_EQ(notice_sentence(SettingsNotice::none), L"");
    EXPECT_EQ(notice_sentence(SettingsNotice::unreadable),
              L"The settings cannot be read now, and stay as they are. Press the gear to try again.");
    EXPECT_EQ(notice_sentence(SettingsNotice::damaged),
              L"The settings file is damaged. Press the gear and type the settings again. The old file is kept.");
    EXPECT_EQ(notice_sentence(SettingsNotice::password_is_locked),
              L"The saved application password does not open for this Windows user. Press the gear and type it again.");
    EXPECT_EQ(
        notice_sentence(SettingsNotice::password_is_lost),
        L"Windows did not protect the application password, so it is not kept. Press the gear and type it again.");
    EXPECT_EQ(notice_sentence(SettingsNotice::not_saved),
              L"The settings are not saved. Close whatever else uses ui.json, then open and close the settings again.");
}
