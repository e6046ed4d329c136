#include "engine/stalefiles.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QRegularExpression>

int removeStaleFiles(const QString& dir)
{
    // Only names these programs make: a user's own hidden files stay,
    // whatever they are called.
    static const QRegularExpression ours(
        "^(\\..+\\.[0-9a-f]+-[0-9a-f]+\\.part|\\.tonewright-[A-Za-z0-9]{6}\\.[a-z0-9]+)$");
    const QDateTime before = QDateTime::currentDateTime().addSecs(-kStaleFileSeconds);
    const QFileInfoList files =
        QDir(dir).entryInfoList({".*.part", ".tonewright-*"}, QDir::Files | QDir::Hidden);
    int removed = 0;
    for (const QFileInfo& file : files) {
        if (!ours.match(file.fileName()).hasMatch() || file.lastModified() >= before)
            continue;
        qDebug().noquote() << "delete left-over file:" << file.filePath();
        removed += QFile::remove(file.filePath()) ? 1 : 0;
    }
    return removed;
}
