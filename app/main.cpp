// Tonewright's entry point. Start-up, in order: application object and
// identity, message handler ("app start"), crash log, application directory,
// style and skin, language, main window, crash flag (a problem report after
// an unclean end), temporary files, the automatic update check, window
// shown, event loop; then "crashFlag" false and "safed return".

#include "app/startup.h"

int main(int argc, char* argv[])
{
    return tonewrightMain(argc, argv);
}
