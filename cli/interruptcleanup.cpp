#include "cli/interruptcleanup.h"

#include <vexa.h>

#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <initializer_list>

namespace {

constexpr int kChildren = 1024; // the most that -j runs at once
std::atomic<pid_t> g_children[kChildren];

static_assert(std::atomic<pid_t>::is_always_lock_free, "the signal handler reads the pids");

extern "C" void onInterrupt(int sig)
{
    // Async-signal-safe calls only.
    KeloRemoveTemporaries();
    for (std::atomic<pid_t>& child : g_children) {
        const pid_t pid = child.load();
        if (pid > 0)
            ::kill(pid, sig);
    }
    struct sigaction byDefault = {};
    byDefault.sa_handler = SIG_DFL;
    sigemptyset(&byDefault.sa_mask);
    sigaction(sig, &byDefault, nullptr);
    ::raise(sig);
}

} // namespace

namespace interruptcleanup {

void install()
{
    struct sigaction action = {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    sigaddset(&action.sa_mask, SIGINT);
    sigaddset(&action.sa_mask, SIGTERM);
    for (int sig : {SIGINT, SIGTERM})
        sigaction(sig, &action, nullptr);
}

void addChild(long long pid)
{
    for (std::atomic<pid_t>& child : g_children) {
        pid_t expected = 0;
        if (child.compare_exchange_strong(expected, static_cast<pid_t>(pid)))
            return;
    }
}

void forgetChild(long long pid)
{
    for (std::atomic<pid_t>& child : g_children) {
        pid_t expected = static_cast<pid_t>(pid);
        if (child.compare_exchange_strong(expected, 0))
            return;
    }
}

} // namespace interruptcleanup
