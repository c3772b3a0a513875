// What programs hand to the shell.
#pragma once

#include "kit/windows/replaced_import.h"

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <utility>
#include <vector>

// The pages that programs have opened in the browser of the test world since this object was made.
class OpenedPages {
public:
    OpenedPages();
    std::vector<std::string> addresses() const;
    bool come_to(std::size_t count) const;  // sooner or later

private:
    std::string m_before;
};

using ShellStart = std::pair<std::wstring, std::wstring>;  // program or page, and parameters

// Notes what this process would have the shell start, and starts nothing, for as long as this lives. One at a time.
class ShellStarts {
public:
    ShellStarts();
    std::vector<ShellStart> noted() const;

private:
    ReplacedImport<decltype(&ShellExecuteW)> m_import;
};
