#include "wallet_bridge/registry_lock.h"

#include "platform/file_lock.h"
#include "platform/files.h"
#include "wallet_bridge/data_directory.h"

#include <cstdint>
#include <mutex>
#include <optional>

namespace {

struct LockState {
    std::recursive_mutex mutex;
    std::uint32_t depth = 0;       // how many guards of the thread that holds the mutex are alive
    std::optional<FileLock> file;  // held by the outermost of them
};

LockState& lock_state()
{
    static auto* const state = new LockState;  // never destroyed: a worker may hold it when the process ends
    return *state;
}

}  // namespace

RegistryLock::RegistryLock()
{
    LockState& state = lock_state();
    state.mutex.lock();
    if (++state.depth > 1) return;
    const std::string folder = data_directory();
    state.file.emplace(folder + "/wallets.lock");
    if (state.file->is_held()) return;
    create_folders(folder);  // seldom missing: only asked for when it is
    state.file.emplace(folder + "/wallets.lock");
}

RegistryLock::~RegistryLock()
{
    LockState& state = lock_state();
    if (--state.depth == 0) state.file.reset();
    state.mutex.unlock();
}
