#pragma once
// One song, video or dropped file as it travels through the program: a plain
// value, copied freely.

#include <QPixmap>
#include <QString>

class CRingToneNode
{
public:
    CRingToneNode();
    CRingToneNode(const CRingToneNode& other);
    CRingToneNode& operator=(const CRingToneNode& other);

    // Fills the record from a media file: title from the file name, video
    // flag from the media engine.
    void LoadFromFile(const QString& path);

    QString strPath;
    QString strTitle;
    QString strArtist;
    QString strAlbum;
    int nReserved;
    int bVideo;
    QPixmap pixAlbum;
    int bLocalFile;
};

Q_DECLARE_METATYPE(CRingToneNode)
