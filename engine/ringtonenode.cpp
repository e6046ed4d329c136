#include "engine/ringtonenode.h"

#include "engine/timelinehelper.h"

CRingToneNode::CRingToneNode() : nReserved(0), bVideo(0), bLocalFile(0) {}

CRingToneNode::CRingToneNode(const CRingToneNode& other)
    : strPath(other.strPath), strTitle(other.strTitle), strArtist(other.strArtist),
      strAlbum(other.strAlbum), nReserved(other.nReserved), bVideo(other.bVideo),
      pixAlbum(other.pixAlbum), bLocalFile(other.bLocalFile)
{
}

CRingToneNode& CRingToneNode::operator=(const CRingToneNode& other)
{
    strPath = other.strPath;
    strTitle = other.strTitle;
    strArtist = other.strArtist;
    strAlbum = other.strAlbum;
    nReserved = other.nReserved;
    bVideo = other.bVideo;
    pixAlbum = other.pixAlbum;
    bLocalFile = other.bLocalFile;
    return *this;
}

void CRingToneNode::LoadFromFile(const QString& path)
{
    bLocalFile = 1;
    strPath = path;
    const int slash = path.lastIndexOf('/');
    const int backslash = path.lastIndexOf('\\');
    const int sep = slash <= backslash ? backslash : slash;
    // A lone leading separator stays in the title ("/x.mp3" gives "/x").
    strTitle = sep < 1 ? path : path.mid(sep + 1);
    const int dot = strTitle.lastIndexOf('.');
    if (dot > 0)
        strTitle = strTitle.left(dot);
    bVideo = CTimeLineHelper::haveVideo(path.toLocal8Bit().constData()) ? 1 : 0;
}
