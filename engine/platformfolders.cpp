#include "engine/platformfolders.h"

#include <itunesagent.h>
#include <vexa.h>

#include <QFile>
#include <QStandardPaths>

QString programCacheDir()
{
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
}

QString programDataDir()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

void tellPlatformFolders()
{
    KeloSetDataDirectory(QFile::encodeName(programDataDir()).constData());
    const QByteArray music =
        QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::MusicLocation));
    const QByteArray videos =
        QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::MoviesLocation));
    ItunesAgentSetFolders(music.constData(), videos.constData(),
                          QFile::encodeName(programCacheDir()).constData());
    ItunesAgentSetLibraryFile(qgetenv("TONEWRIGHT_LIBRARY_XML").constData());
}
