// Tonewright's entry point. --version and --help answer before anything
// starts. Start-up, in order: application object and identity, message
// handler ("app start"), application directory, style and skin, main
// window, crash flag, temporary files, window shown, event loop; then
// "crashFlag" false and "safed return".

#include "app/commandline.h"
#include "app/startup.h"

int main(int argc, char* argv[])
{
    const int early = commandLineEarlyExit(argc, argv);
    if (early >= 0)
        return early;
    return tonewrightMain(argc, argv);
}
