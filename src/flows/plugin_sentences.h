// What publishing and removing say alike about a plugin that is not as it should be.
#pragma once

inline constexpr wchar_t kInstallCurrentPlugin[] = L"Press Install plugin and upload the zip over the one on the site.";
inline constexpr wchar_t kInstallPluginFirst[] = L"Install the plugin first.";
