// What the main window answers when its controls ask for their colours, and what it asks of its frame.
#include "app/windows/main_window_painting.h"

#include "kit/windows/own_window.h"
#include "kit/windows/replaced_import.h"

#include <gtest/gtest.h>

#include <dwmapi.h>

#include <map>

using SetAttributeFunction = decltype(&DwmSetWindowAttribute);
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" SetAttributeFunction __imp_DwmSetWindowAttribute;

namespace {

constexpr COLORREF kText = RGB(244, 240, 250);
constexpr COLORREF kNote = RGB(214, 206, 236);
constexpr COLORREF kCaption = RGB(186, 176, 206);
constexpr COLORREF kCardColour = RGB(54, 38, 88);
constexpr COLORREF kFieldColour = RGB(24, 16, 40);

// A device context that was in use before, as it may well be.
class UsedContext {
public:
    UsedContext() : m_dc(CreateCompatibleDC(nullptr))
    {
        SetTextColor(m_dc, RGB(1, 2, 3));
        SetBkColor(m_dc, RGB(1, 2, 3));
        SetBkMode(m_dc, OPAQUE);
    }
    UsedContext(const UsedContext&) = delete;
    UsedContext& operator=(const UsedContext&) = delete;
    ~UsedContext() { DeleteDC(m_dc); }

    HDC get() const { return m_dc; }

private:
    HDC m_dc;
};

HBRUSH ask(const OwnWindow& window, UINT message, const UsedContext& dc, int id)
{
    return reinterpret_cast<HBRUSH>(SendMessageW(window.window(), message, reinterpret_cast<WPARAM>(dc.get()),
                                                 reinterpret_cast<LPARAM>(window.control(id))));
}

LOGBRUSH description(HBRUSH brush)
{
    LOGBRUSH described{};
    GetObjectW(brush, sizeof described, &described);
    return described;
}

void expect_colours(const OwnWindow& window, UINT message, int id, COLORREF text, COLORREF background)
{
    const UsedContext dc;
    const LOGBRUSH brush = description(ask(window, message, dc, id));
    EXPECT_EQ(GetTextColor(dc.get()), text) << id;
    EXPECT_EQ(GetBkColor(dc.get()), background) << id;
    EXPECT_EQ(brush.lbStyle, static_cast<UINT>(BS_SOLID)) << id;
    EXPECT_EQ(brush.lbColor, background) << id;
}

std::map<DWORD, DWORD> frame_attributes;

HRESULT WINAPI note_attribute(HWND, DWORD attribute, LPCVOID value, DWORD size)
{
    frame_attributes[attribute] = size == sizeof(DWORD) ? *static_cast<const DWORD*>(value) : 0;
    return S_OK;
}

}  // namespace

TEST(ControlColours, OfTheTextsInTheCards)
{
    const TestFolder folder;
    const OwnWindow window;
    for (const int id : {1010, 1011, 1012})
        expect_colours(window, WM_CTLCOLORSTATIC, id, kText, kCardColour);
    expect_colours(window, WM_CTLCOLORSTATIC, 1013, kNote, kCardColour);
    for (const int id : {1014, 1015, 1016, 1017})
        expect_colours(window, WM_CTLCOLORSTATIC, id, kCaption, kCardColour);
}

TEST(ControlColours, OfTheNameField)
{
    const TestFolder folder;
    const OwnWindow window;
    expect_colours(window, WM_CTLCOLOREDIT, 1004, kText, kFieldColour);
}

TEST(ControlColours, OfTheStatusLineAndTheVersionLabelLetTheWindowShowThrough)
{
    const TestFolder folder;
    const OwnWindow window;
    for (const int id : {1008, 1009}) {
        const UsedContext dc;
        EXPECT_EQ(ask(window, WM_CTLCOLORSTATIC, dc, id), GetStockObject(HOLLOW_BRUSH)) << id;
        EXPECT_EQ(GetTextColor(dc.get()), kText) << id;
        EXPECT_EQ(GetBkMode(dc.get()), TRANSPARENT) << id;
    }
}

TEST(WindowFrame, IsGivenItsColoursAtCreation)
{
    const TestFolder folder;
    frame_attributes.clear();
    const ReplacedImport<SetAttributeFunction> noted(__imp_DwmSetWindowAttribute, note_attribute);
    const OwnWindow window;
    EXPECT_EQ(frame_attributes, (std::map<DWORD, DWORD>{{20, 1},                   // dark mode
                                                        {34, RGB(92, 64, 140)},    // border
                                                        {35, RGB(168, 164, 188)},  // caption
                                                        {36, RGB(32, 16, 54)}}));  // text
}
