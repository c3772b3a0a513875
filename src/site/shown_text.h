// Text that the site chose, on its way to the status line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// UTF-16 units of one such text: as many as the status line shows in a script of wide characters, in its three lines at
// the window's smallest size.
inline constexpr std::size_t kLongestShown = 160;

// `text` (UTF-8) as one line, without what nobody sees or what turns the direction of the text around it: control
// characters, and Unicode's marks for direction, joining, width and annotation. White space becomes single blanks, none
// at the ends. Of a longer text the beginning stays, and an ellipsis (U+2026) ends it.
std::wstring shown_text(std::string_view text);
