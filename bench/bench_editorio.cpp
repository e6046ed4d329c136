// The editor's whole pipeline against the ffmpeg command line, on the same
// files in the same run:
//   - openFile of a 5-minute MP3 until waveOpened (conversion to the temporary
//     WAV, peak table, selection) beside
//     ffmpeg -v error -y -i IN -ac 2 -ar 44100 -c:a pcm_s16le OUT.wav
//   - convertToM4r of a 40-second span (the ringtone, the hand-over to the
//     library and the temporary WAV opened again) beside the command line
//     making the same ringtone straight from the MP3 (its export alone):
//     ffmpeg -v error -y -ss 30 -t 40 -i IN -c:a aac -b:a 128k -f ipod OUT.m4r
//     and, as before, beside the command line's two jobs of a reload:
//     ffmpeg -v error -y -ss 30 -t 40 -i WAVE -c:a aac -b:a 128k -f ipod OUT.m4r
//     ffmpeg -v error -y -i IN -ac 2 -ar 44100 -c:a pcm_s16le OUT.wav
// The MP3 is made once into bench-data/ beside this program.

#include "editor/wavewnd.h"
#include "engine/progressdlg.h"
#include "testenv.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const size_t n = v.size();
    return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

double runFfmpeg(const QStringList& args)
{
    QElapsedTimer t;
    t.start();
    QProcess p;
    p.start("ffmpeg", QStringList{"-nostdin", "-v", "error", "-y"} + args);
    p.waitForFinished(-1);
    const double ms = t.nsecsElapsed() / 1e6;
    if (p.exitCode() != 0)
        std::fprintf(stderr, "ffmpeg failed: %s\n", p.readAllStandardError().constData());
    return ms;
}

} // namespace

int main(int argc, char* argv[])
{
    tw::isolateEnvironment();
    QApplication app(argc, argv);
    tw::setIdentity();

    const QString dir = QCoreApplication::applicationDirPath() + "/bench-data";
    QDir().mkpath(dir);
    const QString mp3 = dir + "/song-5min.mp3";
    if (!QFile::exists(mp3)) {
        std::printf("making %s ...\n", qPrintable(mp3));
        if (!tw::ffmpeg({"-f", "lavfi", "-i",
                         "sine=frequency=330:sample_rate=44100:duration=300,volume=0.5", "-f",
                         "lavfi", "-i", "anoisesrc=color=pink:duration=300:amplitude=0.1",
                         "-filter_complex", "amix=inputs=2", "-ac", "2", "-c:a", "libmp3lame",
                         "-b:a", "192k", mp3})) {
            std::printf("could not make the MP3\n");
            return 1;
        }
    }
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    QDir().mkpath(cache);
    const QString scratch = dir + "/editorio";
    QDir().mkpath(scratch);

    QWidget host;
    auto* progress = new CProgressDlg(&host);
    auto* wnd = new CWaveWnd(&host, progress);
    host.resize(897, 300);
    wnd->resize(897, 300);
    host.show();

    CRingToneNode song;
    song.LoadFromFile(mp3);

    const int runs = 5;
    std::vector<double> openOurs, openTheirs, exportOurs, exportTheirs, exportAlone;
    for (int i = 0; i < runs; ++i) {
        QSignalSpy opened(wnd, &CWaveWnd::waveOpened);
        QElapsedTimer t;
        t.start();
        const int rc = wnd->openFile(song);
        openOurs.push_back(t.nsecsElapsed() / 1e6);
        if (rc < 0 || opened.count() != 1) {
            std::printf("openFile failed: %d\n", rc);
            return 1;
        }
        openTheirs.push_back(runFfmpeg(
            {"-i", mp3, "-ac", "2", "-ar", "44100", "-c:a", "pcm_s16le", scratch + "/song.wav"}));

        wnd->setBeginTime(30000LL);
        wnd->setEndTime(70000LL);
        wnd->enableFadeIn(true);
        wnd->enableFadeOut(true);
        t.restart();
        const int er = wnd->convertToM4r(cache + "/Bench Ring.m4r");
        exportOurs.push_back(t.nsecsElapsed() / 1e6);
        if (er < 0) {
            std::printf("convertToM4r failed: %d\n", er);
            return 1;
        }
        const double ring = runFfmpeg({"-ss", "30", "-t", "40", "-i", scratch + "/song.wav", "-c:a",
                                       "aac", "-b:a", "128k", "-f", "ipod", scratch + "/ring.m4r"});
        const double wave = runFfmpeg(
            {"-i", mp3, "-ac", "2", "-ar", "44100", "-c:a", "pcm_s16le", scratch + "/song2.wav"});
        exportTheirs.push_back(ring + wave);
        exportAlone.push_back(runFfmpeg({"-ss", "30", "-t", "40", "-i", mp3, "-c:a", "aac", "-b:a",
                                         "128k", "-f", "ipod", scratch + "/ring2.m4r"}));
        // The editor leaves one temporary WAV per conversion (the next start
        // removes them); keep the disk tidy. Unlinking the open one is harmless.
        for (const QString& f : QDir(cache).entryList({"wave_*.tmp"}, QDir::Files))
            QFile::remove(cache + "/" + f);
    }
    wnd->stop();
    QDir(scratch).removeRecursively();

    const double a = median(openOurs), b = median(openTheirs);
    const double c = median(exportOurs), d = median(exportTheirs);
    std::printf("%-46s %10s %12s %7s\n", "task (median of 5)", "ours ms", "ffmpeg ms", "ratio");
    std::printf("%-46s %10.1f %12.1f %7.2f\n", "openFile 5-min MP3 -> waveOpened", a, b, a / b);
    const double e = median(exportAlone);
    std::printf("%-46s %10.1f %12.1f %7.2f\n", "convertToM4r 40 s span (export + reopen)", c, e,
                c / e);
    std::printf("%-46s %10.1f %12.1f %7.2f\n", "  against ffmpeg's export from WAV + decode", c, d,
                c / d);
    return 0;
}
