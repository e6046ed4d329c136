// Tonewright's entry point. --version and --help answer before anything
// starts. Start-up, in order: application object and identity, message
// handler ("app start"), crash log, application directory, style and skin,
// language, main window, crash flag (a problem report after an unclean end),
// temporary files, the automatic update check, window shown (and a file
// given on the command line opened), event loop; then "crashFlag" false and
// "safed return".

#include "app/commandline.h"
#include "app/startup.h"

int main(int argc, char* argv[])
{
    const int early = commandLineEarlyExit(argc, argv);
    if (early >= 0)
        return early;
    return tonewrightMain(argc, argv);
}
