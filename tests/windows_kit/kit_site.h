// kit_site.exe, run beside the checks: a WordPress-like site, the maker's page, and a host for every fault that a
// certificate may have. See site/main.cpp.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

class KitSite {
public:
    KitSite();
    KitSite(const KitSite&) = delete;
    KitSite& operator=(const KitSite&) = delete;
    ~KitSite();  // and waits until its authority is taken away again

    // What programs started from now on reach, in place of the internet.
    void be_the_internet() const;

    // Windows' error when it was to trust the site's authority; 0 when it does.
    DWORD trust_error() const { return m_trust_error; }
    void set_state(const std::string& state) const;
    void set_makers_page(const std::string& text) const;

    std::vector<std::string> heard() const;
    std::vector<std::string> heard_at(const std::string& host) const;  // without the host
    void forget() const;

private:
    std::vector<std::string> order(const std::string& line) const;
    std::string read_line() const;

    HANDLE m_process = nullptr;
    HANDLE m_orders = nullptr;
    HANDLE m_answers = nullptr;
    std::string m_port;
    DWORD m_trust_error = ERROR_GEN_FAILURE;
};

// The one of this run, started and trusted at the first call.
KitSite& the_kit_site();

// Ends it, when it runs.
void end_the_kit_site();

// Takes away the authorities of runs that were cut short; how many there were, as text.
std::string clean_up_authorities();
