#include "app/windows/main_window_painting.h"

#include "app/windows/app_state.h"
#include "app/windows/controls.h"
#include "ui/windows/drawn_button.h"
#include "ui/windows/theme.h"

namespace {

void paint_card(HDC dc, const Rect& card, int corner)
{
    const Pen pen = thin_pen(users_palette().card_outline);
    const Selected selected_pen(dc, pen.get());
    const Selected selected_brush(dc, app_state().card_brush.get());
    RoundRect(dc, card.x, card.y, card.right(), card.bottom(), corner, corner);
}

void paint_text(HDC dc, const wchar_t* text, const Rect& place, const Font& font, Colour colour, UINT form)
{
    const Selected selected(dc, font.get());
    SetTextColor(dc, colorref(colour));
    RECT area = to_windows(place);
    DrawTextW(dc, text, -1, &area, DT_SINGLELINE | DT_VCENTER | form);
}

void paint_header(HDC dc, const MainLayout& layout)
{
    const Fonts& fonts = app_state().fonts;
    SetBkMode(dc, TRANSPARENT);
    paint_text(dc, L"Brasslet", layout.title, fonts.title, users_palette().title, 0);

    const Pen pen = thin_pen(users_palette().title_rule);
    const Selected selected(dc, pen.get());
    MoveToEx(dc, layout.title_rule.x, layout.title_rule.y, nullptr);
    LineTo(dc, layout.title_rule.right(), layout.title_rule.y);

    paint_text(dc, L"A payment name beside your Vaultry paymail.", layout.subtitle, fonts.small,
               users_palette().subtitle, DT_END_ELLIPSIS);
}

}  // namespace

void refresh_colours(HWND window)
{
    refresh_users_palette();
    app_state().card_brush = solid_brush(users_palette().card);
    app_state().edit_brush = solid_brush(users_palette().field);
    apply_frame_colours(window);
}

void repaint_in_new_colours(HWND window)
{
    refresh_colours(window);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void draw_button(const DRAWITEMSTRUCT& item)
{
    const Picture picture = item.CtlID == kSettingsButton ? Picture::gear : Picture::none;
    paint_drawn_button(item, {app_state().dpi, app_state().fonts.body.get(), picture});
}

void paint_main_window(HWND window)
{
    const Painting painting(window);
    const MainLayout& layout = app_state().layout;
    RECT client{};
    GetClientRect(window, &client);
    paint_background(painting.dc(), client);
    paint_card(painting.dc(), layout.wallet_card, layout.card_corner);
    paint_card(painting.dc(), layout.name_card, layout.card_corner);
    paint_header(painting.dc(), layout);
}

HBRUSH colour_static(HDC dc, HWND control)
{
    const Palette& palette = users_palette();
    const int id = GetDlgCtrlID(control);
    if (id == kStatusLine || id == kVersionLabel) {
        const bool is_link = id == kVersionLabel && app_state().update_is_available;
        SetTextColor(dc, colorref(is_link ? palette.link : palette.plain_text));
        SetBkMode(dc, TRANSPARENT);
        return static_cast<HBRUSH>(GetStockObject(HOLLOW_BRUSH));
    }
    const bool is_value = id == kHousePaymail || id == kPaymentAddress || id == kNamePreview;
    const Colour other = id == kKeptNames ? palette.card_note : palette.card_caption;
    SetTextColor(dc, colorref(is_value ? palette.card_text : other));
    SetBkColor(dc, colorref(palette.card));
    return app_state().card_brush.get();
}

HBRUSH colour_field(HDC dc)
{
    SetTextColor(dc, colorref(users_palette().field_text));
    SetBkColor(dc, colorref(users_palette().field));
    return app_state().edit_brush.get();
}
