#pragma once
// The steps of start-up that are more than a line, kept apart from main()
// so that they can be exercised on their own.

#include <functional>
#include <memory>

class CMainWnd;
class CMPConfig;
class QSettings;

// Deletes the *.tmp files and the ringtones (*.m4r, *.ogg, *.mp3, *.m4a)
// that earlier runs left in the top level of the cache directory; creates
// the directory when it is missing.
void removeTempFiles();

// Reads "crashFlag" (default false); when it is set, calls bugReport(false).
// Then writes "crashFlag" = true for the run that starts. Returns the flag read.
bool checkCrashFlag(QSettings& settings, const std::function<void(bool)>& bugReport);

// Runs upgrade(false) when automatic checks are on and the last check plus
// the interval lies before now; then records the time and saves. Returns
// whether the check ran.
bool runAutoUpdateCheck(CMPConfig* config, const std::function<void(bool)>& upgrade);

// Start-up from the main window on: builds it, reads the crash flag (which
// may offer a problem report), removes old temporary files, runs the
// automatic update check when due, and shows the window, in this order.
std::unique_ptr<CMainWnd> openMainWindow(QSettings& settings);

// A termination handler that offers the problem report the user asks for.
// Start-up installs it nowhere; it is kept for that purpose.
void _termHander();

// The whole program: start-up, event loop, shutdown.
int tonewrightMain(int argc, char* argv[]);
