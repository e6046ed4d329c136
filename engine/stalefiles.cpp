#include "engine/stalefiles.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>

int removeStaleFiles(const QString& dir)
{
    const QDateTime before = QDateTime::currentDateTime().addSecs(-kStaleFileSeconds);
    const QFileInfoList files =
        QDir(dir).entryInfoList({".*.part", ".tonewright-*"}, QDir::Files | QDir::Hidden);
    int removed = 0;
    for (const QFileInfo& file : files) {
        if (file.lastModified() >= before)
            continue;
        qDebug().noquote() << "delete left-over file:" << file.filePath();
        removed += QFile::remove(file.filePath()) ? 1 : 0;
    }
    return removed;
}
