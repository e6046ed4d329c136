#pragma once
// The crash log: when the program dies of a fatal signal (a bad memory
// access, an abort, a floating-point or illegal-instruction trap), a plain
// text log named Orvo_<yyyy-MM-dd-hhmmss>.crash — the signal, a back trace
// and the version — is written into the "Tonewright" folder of the crash-logs
// directory, with async-signal-safe calls only, and the signal is raised
// again so that the process ends as it would have. The problem report looks
// for these logs.

#include <QString>

// Where crash logs are kept: ~/Library/logs on macOS, <data>/logs elsewhere.
QString crashLogsDirectory();
// The folder of this program's crash logs inside it.
QString crashLogFolder();

// Installs the handler (once; later calls do nothing). Call after the
// application's identity is set, before the main window is built.
void installCrashHandler();

// Test switch: with TONEWRIGHT_TEST_CRASH set to "start", start-up crashes
// on purpose once the window is up (a checked path for the crash log).
bool crashRequested();
