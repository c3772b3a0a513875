#include "app/windows/update_notice.h"

#include "app/windows/app_state.h"
#include "app/windows/controls.h"
#include "build_values.h"
#include "platform/text_conversion.h"
#include "platform/windows/shell.h"
#include "ui/windows/labels.h"
#include "update/build_number.h"

namespace {

bool user_wants_page(std::int32_t build)
{
    const std::string question = "Version " + version_of_build(build) + " is on the shelf.\n\nOpen the page?";
    return MessageBoxW(app_state().main_window, widen(question).c_str(), L"Brasslet", MB_YESNO | MB_ICONQUESTION) ==
           IDYES;
}

}  // namespace

void refresh_version_label()
{
    const HWND label = GetDlgItem(app_state().main_window, kVersionLabel);
    SetWindowTextW(label, widen(version_text(app_state().update_is_available)).c_str());
    if (app_state().update_is_available) set_pressable(label, &kAccessibleLink);
}

void on_update_result(std::int32_t found)
{
    app_state().update_is_available = found > kOwnBuild;
    refresh_version_label();
    if (app_state().update_is_available && user_wants_page(found)) open_update_page();
}

void open_update_page()
{
    if (app_state().update_is_available) open_page(kMakersPage, app_state().main_window);
}
