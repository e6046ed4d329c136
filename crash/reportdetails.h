#pragma once
// What every problem report says about the program besides the system the
// engine describes itself: the versions of the program and of its libraries,
// and the settings file (which the engine copies without its passwords).
// Call once at start-up, after the application's identity is set.

void describeProgramForReports();
