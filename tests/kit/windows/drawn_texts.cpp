#include "kit/windows/drawn_texts.h"

#include "kit/windows/replaced_import.h"
#include "ui/windows/gdi.h"

#include <algorithm>
#include <optional>

using DrawTextFunction = decltype(&DrawTextW);
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" DrawTextFunction __imp_DrawTextW;

namespace {

std::optional<ReplacedImport<DrawTextFunction>> recorder;
std::vector<DrawnText> recorded;

int WINAPI record(HDC dc, LPCWSTR text, int length, LPRECT place, UINT form)
{
    const std::wstring whole = length < 0 ? std::wstring(text) : std::wstring(text, static_cast<std::size_t>(length));
    recorded.push_back({whole, from_windows(*place), form, GetTextColor(dc), GetBkMode(dc),
                        description(GetCurrentObject(dc, OBJ_FONT))});
    return recorder->original()(dc, text, length, place, form);
}

}  // namespace

void start_recording()
{
    recorded.clear();
    recorder.emplace(__imp_DrawTextW, record);
}

std::vector<DrawnText> stop_recording()
{
    recorder.reset();
    return std::move(recorded);
}

DrawnText find_text(const std::vector<DrawnText>& drawn, const std::wstring& text)
{
    const auto found = std::ranges::find(drawn, text, &DrawnText::text);
    return found == drawn.end() ? DrawnText() : *found;
}

LOGFONTW description(HGDIOBJ font)
{
    LOGFONTW described{};
    GetObjectW(font, sizeof described, &described);
    return described;
}
