// The pages that programs have opened in the browser of the test world since this object was made.
#pragma once

#include <string>
#include <vector>

class OpenedPages {
public:
    OpenedPages();
    std::vector<std::string> addresses() const;
    bool come_to(std::size_t count) const;  // sooner or later

private:
    std::string m_before;
};
