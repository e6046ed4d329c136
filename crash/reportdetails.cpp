#include "crash/reportdetails.h"

#include <SDL.h>
#include <vexa.h>

#include <QFile>
#include <QSettings>

void describeProgramForReports()
{
    KeloAddReportDetail("Tonewright", TONEWRIGHT_VERSION);
    KeloAddReportDetail("Qt", qVersion());
    SDL_version sdl;
    SDL_GetVersion(&sdl);
    const QByteArray sdlVersion =
        QStringLiteral("%1.%2.%3").arg(sdl.major).arg(sdl.minor).arg(sdl.patch).toLatin1();
    KeloAddReportDetail("SDL", sdlVersion.constData());
    KeloAddReportDetail("TagLib", TONEWRIGHT_TAGLIB_VERSION);
    KeloSetReportSettingsFile(QFile::encodeName(QSettings().fileName()).constData());
}
