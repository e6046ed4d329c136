#include "library/ItunesWrap.h"

#include "engine/ringtonenode.h"
#include "library/librarynode.h"
#include "library/songsink.h"

#include <itunesagent.h>

#include <QByteArray>
#include <QDebug>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>

namespace {

// The agent's collection of a type; -1 when it has none.
int collectionOf(tagLibraryType type)
{
    switch (type) {
    case LT_LIBRARY:
        return ITA_COLLECTION_LIBRARY;
    case LT_COLLECTION1:
        return ITA_COLLECTION_OTHER;
    case LT_PLAYLISTS:
        return ITA_COLLECTION_PLAYLISTS;
    default:
        return -1;
    }
}

void forwardAgentLog(const char* line, void*)
{
    qDebug().noquote() << "library agent:" << QString::fromUtf8(line);
}

// A text the agent hands out in two passes: its size, then the text (UTF-8).
QString twoPassText(const std::function<int(char*, int)>& get)
{
    const int size = get(nullptr, 0);
    if (size <= 0)
        return QString();
    std::unique_ptr<char[]> text(new char[static_cast<size_t>(size)]());
    get(text.get(), size);
    return QString::fromUtf8(text.get(), static_cast<qsizetype>(qstrnlen(text.get(), size)));
}

QString songText(const char* buffer, int32_t size)
{
    return QString::fromLocal8Bit(buffer, static_cast<qsizetype>(qstrnlen(buffer, size)));
}

// Songs whose titles are asked for in one agent call, and the bytes set
// aside for each at first.
constexpr int kTitleSlice = 65536;
constexpr qsizetype kTitleRoom = 48;
constexpr qsizetype kTitleBytesAtOnce = qsizetype{1} << 26;

// One song in two passes: sizes first, then the texts into buffers of
// exactly those sizes.
void readSong(const void* playlist, int song, CRingToneNode* pNode)
{
    tagSongInfo info;
    std::memset(&info, 0, sizeof info);
    GetSongInfo(playlist, song, &info);
    std::unique_ptr<char[]> title, location, artist, album;
    auto alloc = [](std::unique_ptr<char[]>& buffer, char*& pointer, int32_t size) {
        if (size > 0) {
            buffer.reset(new char[static_cast<size_t>(size)]());
            pointer = buffer.get();
        }
    };
    alloc(title, info.pszTitle, info.nTitleSize);
    alloc(location, info.pszLocation, info.nLocationSize);
    alloc(artist, info.pszArtist, info.nArtistSize);
    alloc(album, info.pszAlbum, info.nAlbumSize);
    GetSongInfo(playlist, song, &info);
    // Song texts are local 8-bit; playlist names are UTF-8. The difference is
    // deliberate.
    if (info.nTitleSize > 0 && info.pszTitle)
        pNode->strTitle = songText(info.pszTitle, info.nTitleSize);
    if (info.nArtistSize > 0 && info.pszArtist)
        pNode->strArtist = songText(info.pszArtist, info.nArtistSize);
    if (info.nLocationSize > 0 && info.pszLocation)
        pNode->strPath = songText(info.pszLocation, info.nLocationSize);
    if (info.nAlbumSize > 0 && info.pszAlbum)
        pNode->strAlbum = songText(info.pszAlbum, info.nAlbumSize);
    pNode->bVideo = info.bVideo != 0 ? 1 : 0;
}

// Image 0 of an open artwork handle in two passes; null when it does not load.
QPixmap readPicture(const void* artwork)
{
    tagArtworkInfo info;
    std::memset(&info, 0, sizeof info);
    GetArtworkInfo(artwork, 0, &info);
    if (info.nDataSize <= 0)
        return QPixmap();
    QByteArray data(info.nDataSize, '\0');
    info.pData = data.data();
    GetArtworkInfo(artwork, 0, &info);
    QPixmap pixmap;
    if (!pixmap.loadFromData(data))
        return QPixmap();
    return pixmap;
}

} // namespace

CItunesWraper* CItunesWraper::instance()
{
    static CItunesWraper wrapper;
    return &wrapper;
}

CItunesWraper::CItunesWraper()
{
    m_icons.insert(ITA_KIND_MUSIC, QIcon(":/li/music"));
    m_icons.insert(ITA_KIND_MOVIES, QIcon(":/li/video"));
    m_icons.insert(ITA_KIND_TV_SHOWS, QIcon(":/li/tv_show"));
    m_icons.insert(ITA_KIND_PODCASTS, QIcon(":/li/podcasts"));
    m_icons.insert(ITA_KIND_RINGTONES, QIcon(":/li/ringtones"));
    m_icons.insert(ITA_KIND_PURCHASED, QIcon(":/li/purchase"));
    m_icons.insert(ITA_KIND_GENIUS, QIcon(":/li/genius"));
    m_icons.insert(ITA_KIND_USER, QIcon(":/li/file"));
    m_icons.insert(ITA_KIND_DJ, QIcon(":/li/file"));
    ItunesAgentSetLogger(&forwardAgentLog, nullptr);
}

CItunesWraper::~CItunesWraper()
{
    ItunesAgentSetLogger(nullptr, nullptr);
}

int CItunesWraper::getSongCount(tagLibraryType type, int playlist)
{
    const int collection = collectionOf(type);
    if (collection < 0)
        return 0;
    // The handle is not checked: a playlist that cannot be opened gives the
    // agent's failure code as its count.
    void* handle = OpenPlaylist(collection, playlist);
    const int count = GetSongCount(handle);
    ClosePlaylist(handle);
    return count;
}

int CItunesWraper::getPlaylistCount(tagLibraryType type)
{
    const int collection = collectionOf(type);
    if (collection < 0)
        return 0;
    return GetPlaylistCount(collection);
}

void CItunesWraper::getSongInfo(tagLibraryType type, int playlist, int song, CRingToneNode* pNode)
{
    Q_ASSERT(pNode);
    if (!pNode)
        return;
    const int collection = collectionOf(type);
    if (collection < 0) {
        ClosePlaylist(nullptr);
        return;
    }
    void* handle = OpenPlaylist(collection, playlist);
    if (!handle) {
        ClosePlaylist(nullptr);
        return;
    }
    readSong(handle, song, pNode);
    ClosePlaylist(handle);
}

QByteArray CItunesWraper::getSongTitles(tagLibraryType type, int playlist)
{
    QByteArray titles;
    const int collection = collectionOf(type);
    if (collection < 0)
        return titles;
    void* handle = OpenPlaylist(collection, playlist);
    if (!handle)
        return titles;
    const int count = GetSongCount(handle);
    // Into room for the usual title length, in slices that keep each answer
    // far below the agent's 2 GB; a title that does not fit gets its size
    // asked for. Mostly one agent call a slice.
    qsizetype room = kTitleRoom;
    for (int first = 0; first < count;) {
        const int songs = std::min(kTitleSlice, count - first);
        const qsizetype at = titles.size();
        const qsizetype size =
            std::max(std::clamp(room * songs, qsizetype{1} << 12, kTitleBytesAtOnce), room);
        titles.resize(at + size);
        const int written =
            GetSongTitles(handle, first, songs, titles.data() + at, static_cast<int>(size));
        titles.resize(at + std::max(written, 0));
        if (written < 0)
            break;
        const auto copied = static_cast<int>(std::count(titles.cbegin() + at, titles.cend(), '\0'));
        if (copied == 0) {
            const int needed = GetSongTitles(handle, first, 1, nullptr, 0);
            if (needed <= 0)
                break;
            room = std::max<qsizetype>(room, needed);
        }
        first += copied;
    }
    ClosePlaylist(handle);
    return titles;
}

QPixmap CItunesWraper::getAlbumPic(tagLibraryType type, int playlist, int song)
{
    const int collection = collectionOf(type);
    if (collection < 0) {
        ClosePlaylist(nullptr);
        return QPixmap();
    }
    void* handle = OpenPlaylist(collection, playlist);
    void* artwork = handle ? OpenArtwork(handle, song) : nullptr;
    if (!handle || !artwork || GetArtworkCount(artwork) <= 0) {
        if (artwork)
            CloseArtwork(artwork);
        if (handle)
            ClosePlaylist(handle);
        return QPixmap();
    }
    // Neither handle is closed on this path; that is how this call has
    // always behaved, and the agent bounds what open artwork may hold.
    return readPicture(artwork);
}

int CItunesWraper::getPlaylistNode(tagLibraryType type, int position, CLibraryNode* pNode)
{
    Q_ASSERT(pNode);
    if (!pNode)
        return -1;
    const int collection = collectionOf(type);
    if (collection < 0)
        return -1;
    pNode->position = position;
    const QString caption = twoPassText([collection, position](char* buffer, int size) {
        return GetPlaylistName(collection, position, buffer, size);
    });
    if (!caption.isEmpty())
        pNode->caption = caption;
    void* handle = OpenPlaylist(collection, position);
    if (!handle)
        return 0;
    const int kind = GetPlaylistKind(handle);
    ClosePlaylist(handle);
    const auto icon = m_icons.constFind(kind);
    if (icon == m_icons.constEnd())
        return -2;
    pNode->icon = icon.value();
    return 0;
}

int CItunesWraper::SearchSong(const QString& text, FilterType type, ISongSink* sink)
{
    const QByteArray local = text.toLocal8Bit();
    const auto length = static_cast<int32_t>(local.size());
    auto copy = [&local]() {
        char* buffer = new char[static_cast<size_t>(local.size()) + 1];
        std::memcpy(buffer, local.constData(), static_cast<size_t>(local.size()) + 1);
        return buffer;
    };
    tagSongInfo query;
    std::memset(&query, 0, sizeof query);
    switch (type) {
    case FT_TITLE:
        query.pszTitle = copy();
        query.nTitleSize = length + 1;
        break;
    case FT_ARTIST:
        // The artist's size leaves out the terminator, unlike the others;
        // the agent reads up to the size, so the query is the same.
        query.pszArtist = copy();
        query.nArtistSize = length;
        break;
    case FT_ALBUM:
        query.pszAlbum = copy();
        query.nAlbumSize = length + 1;
        break;
    case FT_ALL:
        // Title twice (the second copy replaces the first) and album: a
        // search for "All" looks at titles and albums, not at artists.
        query.pszTitle = copy();
        query.nTitleSize = length + 1;
        query.pszTitle = copy();
        query.nTitleSize = length + 1;
        query.pszAlbum = copy();
        query.nAlbumSize = length + 1;
        break;
    default:
        return -1;
    }
    ::SearchSong(&query, &CItunesWraper::SearchCallback, sink);
    // The query copies are deliberately left allocated, as this call always
    // has done (a few bytes per search).
    return 1;
}

int CItunesWraper::SearchCallback(const void* playlist, int song, void* sink)
{
    if (!playlist)
        return 1;
    CRingToneNode node;
    readSong(playlist, song, &node);
    if (void* artwork = OpenArtwork(playlist, song)) {
        if (GetArtworkCount(artwork) > 0) {
            const QPixmap picture = readPicture(artwork);
            if (!picture.isNull())
                node.pixAlbum = picture;
        }
        CloseArtwork(artwork);
    }
    if (sink)
        static_cast<ISongSink*>(sink)->addRingTone(node);
    return 1;
}

int CItunesWraper::AddToItunes(const QString& path)
{
    qDebug().noquote() << "AddToItunes:" << path;
    return AppendRingtone(path.toLocal8Bit().constData());
}

QString CItunesWraper::ringtoneDir()
{
    return twoPassText(ItunesAgentGetRingtoneDir);
}
