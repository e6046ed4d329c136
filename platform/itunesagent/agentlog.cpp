#include "agentlog.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <string>

namespace ita {

namespace {
std::mutex g_logMutex;
ItunesAgentLogProc g_logProc = nullptr;
void* g_logUser = nullptr;
} // namespace

void setLogger(ItunesAgentLogProc proc, void* user)
{
    std::lock_guard<std::mutex> lock(g_logMutex);
    g_logProc = proc;
    g_logUser = user;
}

void logLine(const char* format, ...)
{
    char small[512];
    va_list args;
    va_start(args, format);
    va_list again;
    va_copy(again, args);
    const int n = std::vsnprintf(small, sizeof small, format, args);
    va_end(args);
    std::string line;
    if (n >= static_cast<int>(sizeof small)) {
        line.resize(static_cast<size_t>(n) + 1);
        std::vsnprintf(line.data(), line.size(), format, again);
        line.resize(static_cast<size_t>(n));
    } else {
        line = n > 0 ? small : "";
    }
    va_end(again);

    std::lock_guard<std::mutex> lock(g_logMutex);
    if (g_logProc)
        g_logProc(line.c_str(), g_logUser);
    else
        std::fprintf(stderr, "itunesagent: %s\n", line.c_str());
}

} // namespace ita
