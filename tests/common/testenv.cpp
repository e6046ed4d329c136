#include "testenv.h"

#include "engine/platformfolders.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdlib>
#include <memory>

namespace tw {

namespace {
std::unique_ptr<QTemporaryDir>& homeDir()
{
    static std::unique_ptr<QTemporaryDir> dir;
    return dir;
}
} // namespace

void isolateEnvironment()
{
    homeDir() = std::make_unique<QTemporaryDir>(QDir::tempPath() + "/tw-home-XXXXXX");
    const QByteArray home = homeDir()->path().toLocal8Bit();
    qputenv("HOME", home);
    qputenv("XDG_CONFIG_HOME", home + "/.config");
    qputenv("XDG_DATA_HOME", home + "/.local/share");
    qputenv("XDG_CACHE_HOME", home + "/.cache");
    qputenv("XDG_RUNTIME_DIR", home + "/.run");
    QDir().mkpath(homeDir()->path() + "/.run");
    QFile::setPermissions(homeDir()->path() + "/.run",
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("SDL_AUDIODRIVER"))
        qputenv("SDL_AUDIODRIVER", "dummy");
    if (qEnvironmentVariableIsEmpty("SDL_VIDEODRIVER"))
        qputenv("SDL_VIDEODRIVER", "dummy");
}

QString testHome()
{
    return homeDir() ? homeDir()->path() : QString();
}

void setIdentity()
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName("vandrel");
    QCoreApplication::setOrganizationDomain("vandrel.example");
    QCoreApplication::setApplicationName("tonewright");
    tellPlatformFolders();
}

QString testData(const QString& name)
{
    return QStringLiteral(TW_SOURCE_DIR "/tests/data/") + name;
}

QString sharedData(const QString& name)
{
    const QString path = QStringLiteral(TW_SHARED_DATA_DIR "/") + name;
    return QFile::exists(path) ? path : QString();
}

QByteArray fileChecksum(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray();
    QCryptographicHash h(QCryptographicHash::Sha256);
    h.addData(&f);
    return h.result();
}

bool ffmpeg(const QStringList& args, QString* error)
{
    QProcess p;
    p.start("ffmpeg", QStringList() << "-nostdin"
                                    << "-v"
                                    << "error"
                                    << "-y" << args);
    if (!p.waitForFinished(120000)) {
        if (error)
            *error = "ffmpeg did not finish";
        return false;
    }
    if (error)
        *error = QString::fromLocal8Bit(p.readAllStandardError());
    return p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

QString ffprobe(const QStringList& args)
{
    QProcess p;
    p.start("ffprobe", QStringList() << "-v"
                                     << "error" << args);
    p.waitForFinished(60000);
    return QString::fromLocal8Bit(p.readAllStandardOutput());
}

bool writeWav(const QString& path, int rate, int channels, int bits, qint64 frames,
              const std::function<int(qint64, int)>& sample)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    const int bytesPerSample = bits / 8;
    const quint32 dataSize = quint32(frames * channels * bytesPerSample);
    auto put32 = [](QByteArray& b, quint32 v) {
        for (int i = 0; i < 4; ++i)
            b.append(char((v >> (8 * i)) & 0xFF));
    };
    auto put16 = [](QByteArray& b, quint16 v) {
        b.append(char(v & 0xFF));
        b.append(char(v >> 8));
    };
    QByteArray h;
    h.append("RIFF");
    put32(h, 36 + dataSize);
    h.append("WAVE");
    h.append("fmt ");
    put32(h, 16);
    put16(h, 1);
    put16(h, quint16(channels));
    put32(h, quint32(rate));
    put32(h, quint32(rate * channels * bytesPerSample));
    put16(h, quint16(channels * bytesPerSample));
    put16(h, quint16(bits));
    h.append("data");
    put32(h, dataSize);
    f.write(h);

    QByteArray block;
    block.reserve(1 << 16);
    for (qint64 i = 0; i < frames; ++i) {
        for (int c = 0; c < channels; ++c) {
            const int v = sample(i, c);
            if (bytesPerSample == 1)
                block.append(char(quint8(v)));
            else
                put16(block, quint16(qint16(v)));
        }
        if (block.size() >= (1 << 16) - 8) {
            f.write(block);
            block.clear();
        }
    }
    f.write(block);
    return f.error() == QFile::NoError;
}

} // namespace tw
