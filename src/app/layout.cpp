#include "app/layout.h"

#include "ui/geometry.h"

namespace {

constexpr int kMargin = 18;
constexpr int kHeader = 78;

class Scale {
public:
    explicit Scale(unsigned dpi) : m_dpi(dpi) {}
    int operator()(int value) const { return scaled(value, m_dpi); }

private:
    unsigned m_dpi;
};

void place_header(MainLayout& layout, int width, Scale s)
{
    const int margin = s(kMargin);
    const int gap = s(8);
    const int square = s(36);
    const int button_width = s(108);
    const int button_y = (s(kHeader) - s(32)) / 2;

    const int text_right = width - s(280);
    layout.title = {s(20), s(14), text_right - s(20), s(46) - s(14)};
    layout.title_rule = {s(20), s(50), s(168) - s(20), 1};
    layout.subtitle = {s(20), s(52), text_right - s(20), s(74) - s(52)};

    layout.settings = {width - square - margin, (s(kHeader) - square) / 2, square, square};
    layout.unbind = {width - button_width - gap - square - margin, button_y, button_width, s(32)};
    layout.connect = {width - 2 * (button_width + gap) - square - margin, button_y, button_width, s(32)};
}

void place_wallet_card(MainLayout& layout, int width, Scale s)
{
    const int margin = s(kMargin);
    const int top = s(kHeader) + s(16);
    const int x = margin + s(18);
    const int inner = width - 2 * margin - s(36);

    layout.wallet_card = {margin, top, width - 2 * margin, s(128)};
    layout.house_paymail_caption = {x, top + s(12), inner, s(18)};
    layout.house_paymail = {x, top + s(30), inner, s(22)};
    layout.payment_address_caption = {x, top + s(58), inner, s(18)};
    layout.payment_address = {x, top + s(76), inner, s(22)};
}

void place_name_card(MainLayout& layout, Scale s)
{
    const Rect& above = layout.wallet_card;
    const int top = above.bottom() + s(14);
    const int x = above.x + s(18);
    const int inner = above.width - s(36);

    layout.name_card = {above.x, top, above.width, s(168)};
    layout.name_caption = {x, top + s(16), inner, s(18)};
    layout.name_field = {x, top + s(38), inner, s(30)};
    layout.name_preview = {x, top + s(76), inner, s(22)};
    layout.name_hint = {x, top + s(102), inner, s(20)};
    layout.kept_names = {x, top + s(126), inner, s(22)};
}

void place_actions(MainLayout& layout, Scale s)
{
    const Rect& above = layout.name_card;
    const int y = above.bottom() + s(16);
    const int gap = s(8);
    const int width = (above.width - 2 * gap) / 3;

    layout.install = {above.x, y, width, s(36)};
    layout.publish = {above.x + width + gap, y, width, s(36)};
    layout.remove = {above.x + 2 * (width + gap), y, width, s(36)};
}

void place_footer(MainLayout& layout, int width, Scale s)
{
    const int margin = s(kMargin);
    const int y = layout.install.bottom() + s(12);
    const int close_y = y + s(52);

    layout.status = {margin, y, width - 2 * margin, s(48)};
    layout.close = {width - s(110) - margin, close_y, s(110), s(32)};
    layout.version = {margin, close_y + (s(32) - s(18)) / 2, width - 3 * margin - s(110), s(18)};
}

}  // namespace

MainLayout main_layout(int client_width, unsigned dpi)
{
    const Scale s(dpi);
    MainLayout layout;
    layout.card_corner = s(16);
    place_header(layout, client_width, s);
    place_wallet_card(layout, client_width, s);
    place_name_card(layout, s);
    place_actions(layout, s);
    place_footer(layout, client_width, s);
    return layout;
}

Size start_client_size(unsigned dpi)
{
    return {scaled(760, dpi), scaled(600, dpi)};
}

Size smallest_window_size(unsigned dpi)
{
    return {scaled(680, dpi), scaled(600, dpi)};
}
