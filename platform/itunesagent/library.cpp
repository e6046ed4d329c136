#include "library.h"

#include <QString>

namespace ita {

StringPool::StringPool()
{
    // Offset 0 is the empty text, so a default Text reads as "".
    m_data.push_back('\0');
}

Text StringPool::add(std::string_view s)
{
    if (s.empty())
        return Text();
    Text t;
    t.off = static_cast<uint32_t>(m_data.size());
    t.len = static_cast<uint32_t>(s.size());
    m_data.append(s.data(), s.size());
    m_data.push_back('\0');
    return t;
}

uint32_t Library::addTrack(std::string_view title, std::string_view location,
                           std::string_view artist, std::string_view album, bool video, int artwork)
{
    Track t;
    t.title = strings.add(title);
    t.location = strings.add(location);
    t.artist = strings.add(artist);
    t.album = strings.add(album);
    t.foldTitle = strings.add(foldCase(title));
    t.foldArtist = strings.add(foldCase(artist));
    t.foldAlbum = strings.add(foldCase(album));
    t.video = video ? 1 : 0;
    t.artwork = artwork;
    tracks.push_back(t);
    return static_cast<uint32_t>(tracks.size() - 1);
}

void Library::updateTrack(uint32_t index, std::string_view title, std::string_view artist,
                          std::string_view album, int artwork)
{
    Track& t = tracks[index];
    t.title = strings.add(title);
    t.artist = strings.add(artist);
    t.album = strings.add(album);
    t.foldTitle = strings.add(foldCase(title));
    t.foldArtist = strings.add(foldCase(artist));
    t.foldAlbum = strings.add(foldCase(album));
    t.artwork = artwork;
}

uint32_t Library::addPlaylist(int collection, std::string_view name, int kind)
{
    Playlist p;
    p.name = strings.add(name);
    p.kind = kind;
    playlists.push_back(std::move(p));
    const auto index = static_cast<uint32_t>(playlists.size() - 1);
    if (collection >= 0 && collection < 3)
        collections[collection].push_back(index);
    return index;
}

std::string foldCase(std::string_view utf8)
{
    std::string out(utf8);
    bool ascii = true;
    for (char& c : out) {
        const auto u = static_cast<unsigned char>(c);
        if (u >= 0x80) {
            ascii = false;
            break;
        }
        if (u >= 'A' && u <= 'Z')
            c = static_cast<char>(u + ('a' - 'A'));
    }
    if (ascii)
        return out;
    const QByteArray folded =
        QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())).toCaseFolded().toUtf8();
    return std::string(folded.constData(), static_cast<size_t>(folded.size()));
}

std::string baseTitle(std::string_view path)
{
    const size_t sep = path.find_last_of("/\\");
    std::string_view name = sep == std::string_view::npos ? path : path.substr(sep + 1);
    const size_t dot = name.rfind('.');
    if (dot != std::string_view::npos && dot > 0)
        name = name.substr(0, dot);
    return std::string(name);
}

static int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

std::string percentDecode(std::string_view s)
{
    std::string out;
    out.reserve(s.size());
    for (size_t i = 0; i < s.size(); ++i) {
        if (s[i] == '%' && i + 2 < s.size()) {
            const int hi = hexValue(s[i + 1]);
            const int lo = hexValue(s[i + 2]);
            if (hi >= 0 && lo >= 0) {
                out.push_back(static_cast<char>(hi * 16 + lo));
                i += 2;
                continue;
            }
        }
        out.push_back(s[i]);
    }
    return out;
}

static bool startsWithNoCase(std::string_view s, std::string_view prefix)
{
    if (s.size() < prefix.size())
        return false;
    for (size_t i = 0; i < prefix.size(); ++i) {
        char c = s[i];
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + ('a' - 'A'));
        if (c != prefix[i])
            return false;
    }
    return true;
}

static std::string decodeFileUrl(std::string_view url)
{
    if (!startsWithNoCase(url, "file://"))
        return std::string(url);
    std::string_view rest = url.substr(7);
    const size_t slash = rest.find('/');
    if (slash == std::string_view::npos)
        return percentDecode(rest);
    const std::string_view host = rest.substr(0, slash);
    std::string path = percentDecode(rest.substr(slash));
    // "/C:/Users/..." is a Windows path: drop the slash before the drive.
    if (path.size() >= 3 && path[0] == '/' && path[2] == ':' &&
        ((path[1] >= 'A' && path[1] <= 'Z') || (path[1] >= 'a' && path[1] <= 'z')))
        path.erase(0, 1);
    if (!host.empty() && !(host.size() == 9 && startsWithNoCase(host, "localhost")))
        return "//" + percentDecode(host) + path;
    return path;
}

std::string pathFromFileUrl(std::string_view url)
{
    std::string path = decodeFileUrl(url);
    if (path.find('\0') != std::string::npos)
        return std::string();
    return path;
}

} // namespace ita
