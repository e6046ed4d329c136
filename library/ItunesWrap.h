#pragma once
// The only caller of the library agent: maps tagLibraryType onto the agent's
// collections, turns its two-pass buffers into strings, pixmaps and records,
// runs searches into a song list model, and hands finished ringtones over.
// Owns the table of playlist icons. A process-wide singleton built on first
// use (it needs the GUI application for its icons); GUI thread only. No agent
// state is kept between calls: each call opens and closes its own playlist.

#include "library/librarytypes.h"

#include <QByteArray>
#include <QIcon>
#include <QMap>
#include <QPixmap>
#include <QString>
#include <QVector>

class CRingToneNode;
class CLibraryNode;
class ISongSink;

class CItunesWraper
{
public:
    static CItunesWraper* instance();

    // 0 for a type without an agent collection.
    int getSongCount(tagLibraryType type, int playlist);
    int getPlaylistCount(tagLibraryType type);
    // Sets title, artist, path and album (each only when the agent has it)
    // and the video flag; artwork and the local-file flag are left alone.
    void getSongInfo(tagLibraryType type, int playlist, int song, CRingToneNode* pNode);
    // The title of every song of a playlist as the agent gives it: UTF-8,
    // each followed by a NUL, read through one handle in a few agent calls.
    // Empty for a type without an agent collection or a playlist that
    // cannot be opened; shorter when the agent stops answering.
    QByteArray getSongTitles(tagLibraryType type, int playlist);
    // Null when the song has no artwork.
    QPixmap getAlbumPic(tagLibraryType type, int playlist, int song);
    // 0 filled (icon set, or null when the playlist could not be opened),
    // -1 no collection, -2 a kind without icon (such playlists are not shown).
    int getPlaylistNode(tagLibraryType type, int position, CLibraryNode* pNode);
    // 1, or -1 for an unknown filter type. The sink receives one record per
    // hit before this returns.
    int SearchSong(const QString& text, FilterType type, ISongSink* sink);
    // The agent's search callback; `sink` is the ISongSink given above.
    static int SearchCallback(const void* playlist, int song, void* sink);
    // The agent's result; 0 on success.
    int AddToItunes(const QString& path);
    // The folder AddToItunes copies ringtones into.
    QString ringtoneDir();

    ~CItunesWraper();
    CItunesWraper(const CItunesWraper&) = delete;
    CItunesWraper& operator=(const CItunesWraper&) = delete;

private:
    CItunesWraper();

    QMap<int, QIcon> m_icons; // playlist kind -> icon
};
