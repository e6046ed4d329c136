#include "app/appdir.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QString applicationDataDirectory()
{
    const QString exeDir = QCoreApplication::applicationDirPath();
    if (QFileInfo::exists(exeDir + "/skin/default/default.css"))
        return exeDir;
    const QString installed = QDir::cleanPath(exeDir + "/../share/tonewright");
    if (QFileInfo(installed).isDir())
        return installed;
    return exeDir;
}
