#include "settings/settings_notice.h"

std::wstring notice_sentence(SettingsNotice notice)
{
    switch (notice) {
    case SettingsNotice::none:
        return {};
    case SettingsNotice::unreadable:
        return L"The settings cannot be read now, and stay as they are. Press the gear to try again.";
    case SettingsNotice::damaged:
        return L"The settings file is damaged. Press the gear and type the settings again. The old file is kept.";
    case SettingsNotice::password_is_locked:
        return L"The saved application password does not open for this Windows user. Press the gear and type it again.";
    case SettingsNotice::password_is_lost:
        return L"Windows did not protect the application password, so it is not kept. Press the gear and type it "
               L"again.";
    case SettingsNotice::not_saved:
        return L"The settings are not saved. Close whatever else uses ui.json, then open and close the settings again.";
    }
    return {};
}
