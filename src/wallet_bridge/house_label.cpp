#include "text/ascii.h"
#include "wallet_bridge/house_registry.h"

std::string bare_label(std::string_view name)
{
    name.remove_prefix(std::min(name.find_first_not_of("@$ "), name.size()));
    name = name.substr(0, name.find_last_not_of(" \r\n") + 1);
    return std::string(name.substr(0, name.find('@')));
}

std::string house_label(std::string_view name)
{
    std::string label = lower_ascii(bare_label(name));
    std::erase_if(label,
                  [](char c) { return !is_ascii_letter(c) && !is_ascii_digit(c) && c != '-' && c != '.' && c != '_'; });
    return label;
}
