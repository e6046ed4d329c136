#pragma once
// What the picture tests share: where the pictures go, and the program's
// own files (skin, translations) found as start-up finds them. Header-only.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QString>

namespace shots {

// build/screenshots, made when missing.
inline QString dir()
{
    const QString path = QStringLiteral(TW_BINARY_DIR "/screenshots");
    QDir().mkpath(path);
    return path;
}

// Makes the build directory current, where start-up would make the
// program's, and applies the skin found there; false when it is missing.
inline bool useProgramSkin()
{
    if (!QDir::setCurrent(TW_BINARY_DIR))
        return false;
    QFile skin("skin/default/default.css");
    if (!skin.open(QIODevice::ReadOnly))
        return false;
    qApp->setStyleSheet(QString::fromUtf8(skin.readAll()));
    return true;
}

} // namespace shots
