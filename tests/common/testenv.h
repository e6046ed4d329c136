#pragma once
// Shared test set-up: every test runs with a fresh temporary HOME and XDG
// directories, Qt's standard paths in test mode, and the application's
// identity, so nothing touches the developer's own settings or library.

#include <QApplication>
#include <QString>
#include <QStringList>
#include <QTest>

#include <functional>

namespace tw {

// Points HOME and the XDG variables at a new temporary directory. Call
// before the application object exists.
void isolateEnvironment();
// The temporary home made by isolateEnvironment().
QString testHome();
// Organisation "vandrel", application "tonewright", test-mode standard paths,
// and the platform libraries told their folders as start-up tells them.
void setIdentity();

// A fixture kept in the repository under tests/data/.
QString testData(const QString& name);
// A file of the optional folder of real third-party files beside the
// repository (../shared/data); empty when that folder is absent.
QString sharedData(const QString& name);

// SHA-256 of a file's bytes; empty when it cannot be read. Tells whether a
// user's file was left untouched.
QByteArray fileChecksum(const QString& path);

// Runs `ffmpeg -v error -y ARGS`; true on exit code 0. *error gets stderr.
bool ffmpeg(const QStringList& args, QString* error = nullptr);
// Runs ffprobe and returns its standard output (-of default=nw=1 style).
QString ffprobe(const QStringList& args);

// Writes a canonical 44-byte-header PCM WAV. sample(frame, channel) gives
// the raw sample value (unsigned 8-bit or signed 16-bit).
bool writeWav(const QString& path, int rate, int channels, int bits, qint64 frames,
              const std::function<int(qint64 frame, int channel)>& sample);

} // namespace tw

// Sets `var` to the path of an optional third-party file, or skips the test
// with a message saying what is missing.
#define TW_SHARED_DATA_OR_SKIP(var, name)                                                          \
    const QString var = tw::sharedData(name);                                                      \
    if (var.isEmpty())                                                                             \
    QSKIP(qPrintable(QString("optional real file %1 is absent (../shared/data is not beside this " \
                             "clone)")                                                             \
                         .arg(name)))

#define TW_TEST_MAIN(TestClass)                                                                    \
    int main(int argc, char* argv[])                                                               \
    {                                                                                              \
        tw::isolateEnvironment();                                                                  \
        QApplication app(argc, argv);                                                              \
        tw::setIdentity();                                                                         \
        TestClass tc;                                                                              \
        return QTest::qExec(&tc, argc, argv);                                                      \
    }
