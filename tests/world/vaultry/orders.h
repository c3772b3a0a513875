// What the stand-in is told to do.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

struct Orders {
    std::wstring count_file;
    std::wstring release_file;  // empty: the lock is left alone
    int show = SW_HIDE;
    std::optional<std::string> reply;  // to every connect request; nothing: they stay without a reply
};

// From the command line, or, when it has no parameter, from the environment variable VAULTRY_ORDERS. Nothing when they
// are wrong.
std::optional<Orders> read_orders();
