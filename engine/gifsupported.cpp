#include "engine/gifsupported.h"

#include <QByteArray>
#include <QDebug>
#include <QImageReader>

bool CGifSupported::getSupportedGIF()
{
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    for (const QByteArray& format : formats) {
        if (format == "gif")
            return true;
    }
    qDebug() << "gif not suported:"; // spelled so in the log on purpose
    return false;
}
