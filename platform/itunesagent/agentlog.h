#pragma once
// The agent's log: one line at a time to the logger the application set
// (ItunesAgentSetLogger), or to standard error. Thread-safe.

#include "itunesagent.h"

namespace ita {

void setLogger(ItunesAgentLogProc proc, void* user);
#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
void logLine(const char* format, ...);

} // namespace ita
