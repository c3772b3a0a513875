#include "wallet_bridge/migration.h"

#include "platform/files.h"
#include "text/ascii.h"
#include "text/clock.h"
#include "text/json.h"
#include "wallet_bridge/shared_files.h"
#include "wallet_bridge/wallet_list.h"

#include <algorithm>

namespace {

using nlohmann::json;

constexpr std::size_t kLongestId = 20;  // digits of a 64-bit number

bool is_there(const std::string& path)
{
    return file_status(path) == FileStatus::exists;
}

// True when the file is at `to`, or there was none to move. What cannot be renamed (it is held, or lies on another
// volume) is copied: under another name first, so that a copy that was cut short never passes for the file.
bool move_file(const std::string& from, const std::string& to)
{
    if (!is_there(from) || rename_file(from, to)) return true;
    const std::string part = to + ".part";
    if (!copy_file(from, part)) return false;
    if (!replace_file(part, to)) {
        remove_file(part);
        return false;
    }
    remove_file(from);
    return true;
}

// The older wallet on its way to the folder of its new id, and the mark that tells the next start of it.
class Move {
public:
    explicit Move(std::string id = {}) : m_id(std::move(id)) {}

    const std::string& id() const { return m_id; }
    std::string new_file() const { return wallet_file_path(m_id); }

    bool mark() const
    {
        if (write_file(moving_mark_path(), m_id)) return true;
        unmark();
        return false;
    }
    // A mark that cannot be deleted is emptied: it must not bring back a wallet that the user deletes later.
    static void unmark()
    {
        if (is_there(moving_mark_path()) && !remove_file(moving_mark_path()))
            static_cast<void>(write_file(moving_mark_path(), ""));
    }

    // The seal goes first: without one, a wallet that the user has locked would pass for an open one.
    bool go() const
    {
        create_folders(parent_folder(new_file()));
        if (!move_file(seal_path(older_wallet_path()), seal_path(new_file()))) return false;
        if (move_file(older_wallet_path(), new_file())) return true;
        move_file(seal_path(new_file()), seal_path(older_wallet_path()));
        return false;
    }
    bool go_back() const
    {
        return move_file(new_file(), older_wallet_path()) &&
               move_file(seal_path(new_file()), seal_path(older_wallet_path()));
    }

private:
    std::string m_id;
};

// The move that a mark shows. Without an id when there is none: one that was cut short while it was written, or that
// somebody else wrote, names no folder.
Move marked_move(const FileReading& mark)
{
    const bool is_id = mark.bytes.size() <= kLongestId && std::ranges::all_of(mark.bytes, is_ascii_digit);
    return Move(is_id ? mark.bytes : std::string());
}

bool has_entry(const json& list, const std::string& id)
{
    return std::ranges::any_of(list["wallets"], [&id](const json& entry) { return text_member(entry, "id") == id; });
}

void add_entry(json& list, const std::string& id)
{
    json& wallets = list["wallets"];
    if (wallets.empty() || text_member(list, "active").empty()) list["active"] = id;
    wallets.push_back({{"id", id}, {"name", "Wallet 1"}});
}

// The entry is made even when the file stays where it is; then the mark stays too, and the next start moves the file.
void carry_out(const RegistryLock& lock, const Move& move, json& list)
{
    const bool is_moved = move.go();
    if (!has_entry(list, move.id())) add_entry(list, move.id());
    const bool is_listed = write_registry(lock, list);
    if (is_listed ? is_moved : move.go_back()) Move::unmark();
}

bool is_at_its_end(const Move& move, const json& list)
{
    const bool has_arrived = is_there(move.new_file());
    return has_arrived ? has_entry(list, move.id()) : !is_there(older_wallet_path());
}

}  // namespace

void migrate_single_wallet()
{
    const RegistryLock lock;
    const FileReading mark = read_whole_file(moving_mark_path());
    if (mark.status == ReadStatus::unreadable) return;
    if (mark.status == ReadStatus::missing && !is_there(older_wallet_path())) return;

    WalletListReading list = look_into_wallet_list(lock);
    if (list.status == WalletListStatus::unreadable) return;
    Move move = marked_move(mark);
    if (move.id().empty()) {
        Move::unmark();
        if (!is_there(older_wallet_path()) || !list.document["wallets"].empty()) return;
        move = Move(std::to_string(milliseconds_since_epoch()));
        if (!move.mark()) return;
    } else if (is_at_its_end(move, list.document)) {
        Move::unmark();
        return;
    }
    if (list.status == WalletListStatus::damaged && !copy_file(wallet_list_path(), damaged_path(wallet_list_path())))
        return;
    carry_out(lock, move, list.document);
}
