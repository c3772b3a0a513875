#include "flows/name_guard_sentences.h"

#include "text/ascii.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostListed = 4;  // so that the sentence has room in the status line

using Names = std::vector<std::string>;

template <typename Condition>
Names names_in(const std::vector<LookedAtName>& names, Condition condition)
{
    Names found;
    for (const LookedAtName& name : names)
        if (condition(name.state)) found.push_back(name.paymail);
    return found;
}

std::string listed(const Names& names)
{
    if (names.size() <= kMostListed) return joined(names);
    const Names first(names.begin(), names.begin() + kMostListed);
    return joined(first) + " and " + std::to_string(names.size() - kMostListed) + " more";
}

std::string unanswered_sentence(const Names& names)
{
    if (names.empty()) return {};
    return "No answer about " + listed(names) +
           ". Look whether the site opens and the plugin is active there, or publish again.";
}

std::string all_right_sentence(std::size_t names)
{
    return names == 1 ? "The name pays this wallet." : "All " + std::to_string(names) + " names pay this wallet.";
}

}  // namespace

std::string guard_warning(const std::vector<LookedAtName>& names)
{
    const Names others = names_in(names, pays_somebody_else);
    if (others.empty()) return {};
    if (others.size() == 1)
        return listed(others) + " pays somebody else. Look who changed it on the site, then publish it again.";
    return listed(others) + " pay somebody else. Look who changed them on the site, then publish them again.";
}

std::string guard_answer(const std::vector<LookedAtName>& names)
{
    if (names.empty()) return "No name is kept for this wallet.";
    const std::string warning = guard_warning(names);
    const std::string unanswered =
        unanswered_sentence(names_in(names, [](NameState state) { return state == NameState::unclear; }));
    if (warning.empty() && unanswered.empty()) return all_right_sentence(names.size());
    return warning.empty() || unanswered.empty() ? warning + unanswered : warning + " " + unanswered;
}
