#include "mediafixtures.h"

#include "testenv.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace tw {

QString fixtureDir()
{
    static QTemporaryDir dir(QDir::tempPath() + "/tw-media-XXXXXX");
    // For looking into a failure: TW_KEEP_FIXTURES=1 keeps the folder.
    static const bool keep = [] {
        dir.setAutoRemove(!qEnvironmentVariableIsSet("TW_KEEP_FIXTURES"));
        return true;
    }();
    Q_UNUSED(keep);
    return dir.path();
}

namespace {

QString make(const QString& name, const QStringList& args)
{
    const QString path = fixtureDir() + "/" + name;
    if (QFile::exists(path))
        return path;
    QString err;
    if (!ffmpeg(QStringList(args) << path, &err)) {
        qWarning("fixture %s failed: %s", qPrintable(name), qPrintable(err));
        return QString();
    }
    return path;
}

QString sine(int seconds)
{
    return QString("sine=frequency=440:sample_rate=44100:duration=%1").arg(seconds);
}

} // namespace

QString mp3Fixture(int seconds)
{
    return make(QString("tone %1s.mp3").arg(seconds),
                {"-f", "lavfi", "-i", sine(seconds), "-ac", "2", "-c:a", "libmp3lame", "-b:a",
                 "128k", "-metadata", "title=Test Tone", "-metadata", "artist=Tonewright",
                 "-metadata", "album=Fixtures"});
}

QString mp4AvFixture(int seconds)
{
    return make(QString("clip %1s.mp4").arg(seconds),
                {"-f", "lavfi", "-i",
                 QString("testsrc=size=320x240:rate=25:duration=%1").arg(seconds), "-f", "lavfi",
                 "-i", sine(seconds), "-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt",
                 "yuv420p", "-c:a", "aac", "-b:a", "96k", "-shortest"});
}

QString silentVideoFixture(int seconds)
{
    return make(QString("silent %1s.mp4").arg(seconds),
                {"-f", "lavfi", "-i",
                 QString("testsrc=size=160x120:rate=25:duration=%1").arg(seconds), "-c:v",
                 "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p", "-an"});
}

QString flacFixture(int seconds)
{
    return make(QString("tone %1s.flac").arg(seconds),
                {"-f", "lavfi", "-i", sine(seconds), "-c:a", "flac"});
}

QString wavFixture(int seconds)
{
    return make(QString("tone %1s.wav").arg(seconds),
                {"-f", "lavfi", "-i", sine(seconds), "-ac", "2", "-c:a", "pcm_s16le",
                 "-map_metadata", "-1", "-flags", "+bitexact", "-fflags", "+bitexact"});
}

QString textFixture()
{
    const QString path = fixtureDir() + "/notes.txt";
    QFile f(path);
    if (f.open(QIODevice::WriteOnly))
        f.write("This is not a song.\nJust a few lines of text.\n");
    return path;
}

QString emptyFixture()
{
    const QString path = fixtureDir() + "/empty.mp3";
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    return path;
}

QString mp3WithCoverFixture()
{
    const QString cover =
        make("cover.jpg", {"-f", "lavfi", "-i", "testsrc=size=64x64:duration=1", "-frames:v", "1"});
    if (cover.isEmpty())
        return QString();
    return make("with cover.mp3", {"-f", "lavfi", "-i", sine(3), "-i", cover, "-map", "0:a", "-map",
                                   "1:v", "-c:a", "libmp3lame", "-c:v", "copy", "-id3v2_version",
                                   "3", "-disposition:v", "attached_pic"});
}

} // namespace tw
