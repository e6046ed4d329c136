// The marked temporary files, in fixed slots that a signal handler can walk
// without a lock or an allocation.

#include "vexa.h"

#include <unistd.h>

#include <atomic>
#include <climits>
#include <cstring>

namespace {

enum SlotState : int
{
    kFree = 0,
    kBusy = 1, // being filled or emptied: a signal handler passes it by
    kMarked = 2
};

struct Slot
{
    std::atomic<int> state{kFree};
    char path[PATH_MAX] = {};
};

constexpr int kSlots = 64;
Slot g_slots[kSlots];

static_assert(std::atomic<int>::is_always_lock_free, "the signal handler reads the states");

} // namespace

extern "C" int KeloMarkTemporary(const char* path)
{
    if (!path || std::strlen(path) >= PATH_MAX)
        return -1;
    for (Slot& slot : g_slots) {
        int expected = kFree;
        if (!slot.state.compare_exchange_strong(expected, kBusy))
            continue;
        std::strcpy(slot.path, path);
        slot.state.store(kMarked);
        return 0;
    }
    return -1;
}

extern "C" void KeloUnmarkTemporary(const char* path)
{
    if (!path)
        return;
    for (Slot& slot : g_slots) {
        int expected = kMarked;
        if (!slot.state.compare_exchange_strong(expected, kBusy))
            continue;
        if (std::strcmp(slot.path, path) != 0) {
            slot.state.store(kMarked);
            continue;
        }
        slot.path[0] = '\0';
        slot.state.store(kFree);
        return;
    }
}

extern "C" void KeloRemoveTemporaries(void)
{
    for (Slot& slot : g_slots)
        if (slot.state.load() == kMarked)
            ::unlink(slot.path);
    // Marked folders once the files in them are gone.
    for (Slot& slot : g_slots)
        if (slot.state.load() == kMarked)
            ::rmdir(slot.path);
}
