// Tonewright's entry point. Start-up, in order: application object and
// identity, message handler ("app start"), application directory, style and
// skin, main window, crash flag, temporary files, window shown, event loop;
// then "crashFlag" false and "safed return".

#include "app/startup.h"

int main(int argc, char* argv[])
{
    return tonewrightMain(argc, argv);
}
