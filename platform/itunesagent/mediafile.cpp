#include "mediafile.h"

#include "library.h"

#include <taglib/aifffile.h>
#include <taglib/asffile.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/oggfile.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/speexfile.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>
#include <taglib/xiphcomment.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>

namespace ita {

namespace {

std::string lowerExtension(std::string_view path)
{
    const size_t slash = path.find_last_of("/\\");
    const size_t dot = path.rfind('.');
    if (dot == std::string_view::npos || (slash != std::string_view::npos && dot < slash))
        return std::string();
    std::string ext(path.substr(dot + 1));
    for (char& c : ext)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + ('a' - 'A'));
    return ext;
}

bool oneOf(const std::string& ext, std::initializer_list<const char*> list)
{
    for (const char* e : list)
        if (ext == e)
            return true;
    return false;
}

// Containers that TagLib does not read: taken as video when their first
// bytes look right.
bool isPlainVideoExtension(const std::string& ext)
{
    return oneOf(ext, {"mkv", "webm", "avi", "wmv", "mpg", "mpeg", "ogv", "flv", "ts", "m2ts"});
}

bool isMp4Extension(const std::string& ext)
{
    return oneOf(ext, {"mp4", "m4v", "mov", "3gp", "3g2", "m4a", "m4b", "m4p", "m4r"});
}

bool isMp4VideoExtension(const std::string& ext)
{
    return oneOf(ext, {"mp4", "m4v", "mov", "3gp", "3g2"});
}

bool isAudioExtension(const std::string& ext)
{
    return oneOf(ext, {"mp3", "mp2", "flac", "ogg", "oga", "opus", "spx", "wav", "aif", "aiff",
                       "aifc", "wma", "asf", "ape", "mpc", "wv", "tta"});
}

struct FileCloser
{
    void operator()(FILE* f) const { std::fclose(f); }
};
using FilePtr = std::unique_ptr<FILE, FileCloser>;

uint32_t be32(const unsigned char* p)
{
    return (uint32_t(p[0]) << 24) | (uint32_t(p[1]) << 16) | (uint32_t(p[2]) << 8) | p[3];
}

uint64_t be64(const unsigned char* p)
{
    return (uint64_t(be32(p)) << 32) | be32(p + 4);
}

bool readAt(FILE* f, uint64_t pos, void* buffer, size_t n)
{
    if (fseeko(f, static_cast<off_t>(pos), SEEK_SET) != 0)
        return false;
    return std::fread(buffer, 1, n, f) == n;
}

// One box of an MPEG-4 file: its type and where its payload lies.
struct Box
{
    char type[4];
    uint64_t payload; // file offset of the payload
    uint64_t size;    // payload bytes
};

using BoxVisitor = std::function<bool(const Box& box)>;

// Calls visit for each box between the file offsets begin and end, reading
// only each box's header; stops early when visit returns true (and returns
// true). False at the end, or at a header that does not fit.
bool forEachBox(FILE* f, uint64_t begin, uint64_t end, const BoxVisitor& visit)
{
    uint64_t pos = begin;
    while (pos + 8 <= end) {
        unsigned char head[16];
        if (!readAt(f, pos, head, 8))
            return false;
        uint64_t size = be32(head);
        uint64_t header = 8;
        if (size == 1) {
            if (pos + 16 > end || !readAt(f, pos + 8, head + 8, 8))
                return false;
            size = be64(head + 8);
            header = 16;
        } else if (size == 0) {
            size = end - pos;
        }
        if (size < header || size > end - pos)
            return false;
        Box box;
        std::memcpy(box.type, head + 4, 4);
        box.payload = pos + header;
        box.size = size - header;
        if (visit(box))
            return true;
        pos += size;
    }
    return false;
}

bool forEachChild(FILE* f, const Box& parent, const BoxVisitor& visit)
{
    return forEachBox(f, parent.payload, parent.payload + parent.size, visit);
}

bool isBox(const char* type, const char* name)
{
    return std::memcmp(type, name, 4) == 0;
}

// A track is a video when its handler is "vide" and its first sample entry
// is not a picture format: a single-picture track is a cover, not a video.
bool trackIsVideo(FILE* f, const Box& trak)
{
    bool video = false;
    forEachChild(f, trak, [&](const Box& mdia) {
        if (!isBox(mdia.type, "mdia"))
            return false;
        bool handlerVideo = false;
        bool pictureCodec = false;
        forEachChild(f, mdia, [&](const Box& child) {
            // hdlr: version and flags, pre-defined, then the handler type.
            unsigned char hdlr[12];
            if (isBox(child.type, "hdlr") && child.size >= 12 &&
                readAt(f, child.payload, hdlr, sizeof hdlr))
                handlerVideo = std::memcmp(hdlr + 8, "vide", 4) == 0;
            if (!isBox(child.type, "minf"))
                return false;
            forEachChild(f, child, [&](const Box& stbl) {
                if (!isBox(stbl.type, "stbl"))
                    return false;
                forEachChild(f, stbl, [&](const Box& stsd) {
                    // stsd: version and flags, entry count, then the first
                    // entry's size and format.
                    unsigned char entry[16];
                    if (isBox(stsd.type, "stsd") && stsd.size >= 16 &&
                        readAt(f, stsd.payload, entry, sizeof entry)) {
                        const char* format = reinterpret_cast<const char*>(entry + 12);
                        pictureCodec = isBox(format, "jpeg") || isBox(format, "png ") ||
                                       isBox(format, "mjpa") || isBox(format, "mjpb") ||
                                       isBox(format, "gif ");
                    }
                    return false;
                });
                return true;
            });
            return false;
        });
        video = handlerVideo && !pictureCodec;
        return true;
    });
    return video;
}

bool looksLikeVideo(const std::string& path, const std::string& ext)
{
    FilePtr f(std::fopen(path.c_str(), "rb"));
    unsigned char h[12] = {};
    if (!f || std::fread(h, 1, sizeof h, f.get()) != sizeof h)
        return false;
    if (ext == "mkv" || ext == "webm")
        return be32(h) == 0x1A45DFA3;
    if (ext == "avi")
        return std::memcmp(h, "RIFF", 4) == 0 && std::memcmp(h + 8, "AVI ", 4) == 0;
    if (ext == "wmv")
        return be32(h) == 0x3026B275;
    if (ext == "mpg" || ext == "mpeg")
        return be32(h) == 0x000001BA || be32(h) == 0x000001B3;
    if (ext == "ogv")
        return std::memcmp(h, "OggS", 4) == 0;
    if (ext == "flv")
        return std::memcmp(h, "FLV", 3) == 0;
    if (ext == "ts")
        return h[0] == 0x47;
    if (ext == "m2ts")
        return h[4] == 0x47;
    return false;
}

std::string utf8(const TagLib::String& s)
{
    return s.to8Bit(true);
}

void addId3Pictures(TagLib::ID3v2::Tag* tag, std::vector<std::string>* out, int& count)
{
    if (!tag)
        return;
    const TagLib::ID3v2::FrameList& frames = tag->frameListMap()["APIC"];
    for (TagLib::ID3v2::Frame* frame : frames) {
        auto* pic = dynamic_cast<TagLib::ID3v2::AttachedPictureFrame*>(frame);
        if (!pic || pic->picture().isEmpty())
            continue;
        ++count;
        if (out)
            out->emplace_back(pic->picture().data(), pic->picture().size());
    }
}

void addFlacPictures(const TagLib::List<TagLib::FLAC::Picture*>& list,
                     std::vector<std::string>* out, int& count)
{
    for (TagLib::FLAC::Picture* pic : list) {
        if (!pic || pic->data().isEmpty())
            continue;
        ++count;
        if (out)
            out->emplace_back(pic->data().data(), pic->data().size());
    }
}

// Counts (and, with out, collects) the pictures of a file TagLib opened.
int pictures(TagLib::File* file, std::vector<std::string>* out)
{
    int count = 0;
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(file)) {
        addId3Pictures(mpeg->ID3v2Tag(false), out, count);
    } else if (auto* mp4 = dynamic_cast<TagLib::MP4::File*>(file)) {
        if (mp4->tag() && mp4->tag()->contains("covr")) {
            for (const TagLib::MP4::CoverArt& art : mp4->tag()->item("covr").toCoverArtList()) {
                if (art.data().isEmpty())
                    continue;
                ++count;
                if (out)
                    out->emplace_back(art.data().data(), art.data().size());
            }
        }
    } else if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(file)) {
        addFlacPictures(flac->pictureList(), out, count);
    } else if (auto* ogg = dynamic_cast<TagLib::Ogg::File*>(file)) {
        if (auto* xiph = dynamic_cast<TagLib::Ogg::XiphComment*>(ogg->tag()))
            addFlacPictures(xiph->pictureList(), out, count);
    } else if (auto* wav = dynamic_cast<TagLib::RIFF::WAV::File*>(file)) {
        if (wav->hasID3v2Tag())
            addId3Pictures(wav->ID3v2Tag(), out, count);
    } else if (auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(file)) {
        if (aiff->hasID3v2Tag())
            addId3Pictures(aiff->tag(), out, count);
    } else if (auto* asf = dynamic_cast<TagLib::ASF::File*>(file)) {
        if (asf->tag() && asf->tag()->contains("WM/Picture")) {
            for (const TagLib::ASF::Attribute& attr : asf->tag()->attribute("WM/Picture")) {
                const TagLib::ASF::Picture pic = attr.toPicture();
                if (!pic.isValid() || pic.picture().isEmpty())
                    continue;
                ++count;
                if (out)
                    out->emplace_back(pic.picture().data(), pic.picture().size());
            }
        }
    }
    return count;
}

void readTags(TagLib::File* file, MediaTags& tags)
{
    if (TagLib::Tag* tag = file->tag()) {
        tags.title = utf8(tag->title());
        tags.artist = utf8(tag->artist());
        tags.album = utf8(tag->album());
    }
}

} // namespace

FileKind fileKind(std::string_view path)
{
    const std::string ext = lowerExtension(path);
    if (ext.empty())
        return FileKind::Other;
    if (oneOf(ext, {"m3u", "m3u8", "pls", "xspf"}))
        return FileKind::Playlist;
    if (isAudioExtension(ext) || isMp4Extension(ext) || isPlainVideoExtension(ext))
        return FileKind::Media;
    return FileKind::Other;
}

bool isRingtoneName(std::string_view path)
{
    const std::string ext = lowerExtension(path);
    return oneOf(ext, {"m4r", "m4a", "ogg", "mp3"});
}

bool mp4HasVideoTrack(const std::string& path)
{
    // Box headers are read one by one: a large "moov" is never read whole.
    FilePtr f(std::fopen(path.c_str(), "rb"));
    if (!f || fseeko(f.get(), 0, SEEK_END) != 0)
        return false;
    const auto fileSize = static_cast<uint64_t>(ftello(f.get()));
    bool video = false;
    forEachBox(f.get(), 0, fileSize, [&](const Box& top) {
        if (!isBox(top.type, "moov"))
            return false;
        video = forEachChild(f.get(), top, [&](const Box& trak) {
            return isBox(trak.type, "trak") && trackIsVideo(f.get(), trak);
        });
        return true; // the first "moov" decides
    });
    return video;
}

bool isMp4File(const std::string& path)
{
    TagLib::MP4::File file(path.c_str(), false);
    return file.isValid();
}

bool isRingtoneFile(const std::string& path)
{
    const std::string ext = lowerExtension(path);
    if (ext == "m4r" || ext == "m4a")
        return isMp4File(path);
    std::unique_ptr<TagLib::File> file;
    if (ext == "ogg")
        file = std::make_unique<TagLib::Ogg::Vorbis::File>(path.c_str(), true,
                                                           TagLib::AudioProperties::Fast);
    else if (ext == "mp3")
        file =
            std::make_unique<TagLib::MPEG::File>(path.c_str(), true, TagLib::AudioProperties::Fast);
    if (!file || !file->isValid())
        return false;
    const TagLib::AudioProperties* props = file->audioProperties();
    return props && props->sampleRate() > 0;
}

MediaTags readMediaTags(const std::string& path)
{
    MediaTags tags;
    const std::string ext = lowerExtension(path);
    if (isPlainVideoExtension(ext)) {
        tags.ok = looksLikeVideo(path, ext);
        if (!tags.ok)
            tags.why = "not a ." + ext + " video";
        tags.video = true;
    } else if (isMp4Extension(ext)) {
        TagLib::MP4::File file(path.c_str(), true, TagLib::AudioProperties::Fast);
        if (!file.isValid()) {
            tags.why = "not an MPEG-4 file";
            return tags;
        }
        tags.video = isMp4VideoExtension(ext) && mp4HasVideoTrack(path);
        const TagLib::AudioProperties* props = file.audioProperties();
        if (!tags.video && (!props || props->sampleRate() <= 0)) {
            tags.why = "no audio or video track";
            return tags;
        }
        readTags(&file, tags);
        tags.artwork = pictures(&file, nullptr);
        tags.ok = true;
    } else {
        TagLib::FileRef ref(path.c_str(), true, TagLib::AudioProperties::Fast);
        if (ref.isNull() || !ref.file()->isValid()) {
            tags.why = "not a media file TagLib can read";
            return tags;
        }
        const TagLib::AudioProperties* props = ref.audioProperties();
        if (!props || props->sampleRate() <= 0) {
            tags.why = "no audio stream";
            return tags;
        }
        readTags(ref.file(), tags);
        tags.artwork = pictures(ref.file(), nullptr);
        tags.ok = true;
    }
    if (tags.ok && tags.title.empty())
        tags.title = baseTitle(path);
    return tags;
}

std::vector<std::string> readArtwork(const std::string& path)
{
    std::vector<std::string> images;
    const std::string ext = lowerExtension(path);
    if (isPlainVideoExtension(ext))
        return images;
    if (isMp4Extension(ext)) {
        TagLib::MP4::File file(path.c_str(), false);
        if (file.isValid())
            pictures(&file, &images);
        return images;
    }
    TagLib::FileRef ref(path.c_str(), false);
    if (!ref.isNull() && ref.file()->isValid())
        pictures(ref.file(), &images);
    return images;
}

} // namespace ita
