// The best-part suggestion, judged and timed:
//   - 300 annotated songs (../shared/data/best-span/pop909: MIDI with human
//     phrase labels) rendered by fluidsynth into a cache folder once, then
//     the suggestion on each; hit50, start within 4 s and overlap of the
//     first proposal against the chorus (letter B) and against the most
//     repeated melodic section, beside the same figures for a random window
//     (the mean over every start), and the analysis time per song;
//   - the analysis of a 5-minute song from its temporary WAV (the decode not
//     counted), median of 5, beside the ffmpeg command line decoding the
//     same WAV to nothing;
//   - the editor opening that song: when waveOpened comes, when the wave is
//     first painted and when the proposals are in, and what starting the
//     analysis costs the GUI thread (the window never waits for it).
// Without the shared folder or fluidsynth only the timing is printed.
// TW_SUGGEST_SONGS=N judges the first N songs only; TW_SUGGEST_TUNING
// (see judgeSongs) judges other weights of the score beside the defaults.

#include "editor/spansuggest.h"
#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "editor/wavewnd.h"
#include "engine/progressdlg.h"
#include "engine/ringtonenode.h"
#include "testenv.h"
#include "tests/editor/songsynth.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <vector>

namespace {

constexpr double kWindow = 30.0;
const char kSoundFont[] = "/usr/share/sounds/sf2/TimGM6mb.sf2";

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const size_t n = v.size();
    return n == 0 ? 0.0 : n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

struct Span
{
    double begin;
    double end;
};

// A WAV's layout as the engine reads it when the editor opens its
// temporary WAV; the engine is closed again.
bool waveLayout(const QString& path, tagWaveInfo* wave)
{
    CWaveModel model;
    CWavePlayback playback(model);
    if (playback.open(path) != 0)
        return false;
    *wave = playback.record();
    playback.release();
    return wave->frameCount > 0;
}

// The phrases of one song, in seconds, by letter: occurrences that touch
// (less than 0.5 s apart) merged.
std::map<QChar, std::vector<Span>> phrases(const QString& beatFile, const QString& labFile,
                                           std::map<QChar, int>* bars)
{
    std::vector<double> downbeats;
    QFile beats(beatFile);
    if (beats.open(QIODevice::ReadOnly)) {
        QTextStream in(&beats);
        while (!in.atEnd()) {
            const QStringList f = in.readLine().split(' ', Qt::SkipEmptyParts);
            if (f.size() >= 3 && f[2].toDouble() == 1.0)
                downbeats.push_back(f[0].toDouble());
        }
    }
    QFile lab(labFile);
    std::map<QChar, std::vector<Span>> out;
    if (!lab.open(QIODevice::ReadOnly) || downbeats.size() < 2)
        return out;
    const QString label = QString::fromLatin1(lab.readAll()).trimmed();
    // Bars past the last downbeat continue at the last bar's length.
    const double lastBar = downbeats.back() - downbeats[downbeats.size() - 2];
    auto downbeat = [&](size_t k) {
        return k < downbeats.size() ? downbeats[k]
                                    : downbeats.back() + double(k - downbeats.size() + 1) * lastBar;
    };
    size_t bar = 0;
    for (int i = 0; i < label.size();) {
        const QChar letter = label[i++];
        int n = 0;
        while (i < label.size() && label[i].isDigit())
            n = n * 10 + label[i++].digitValue();
        const Span s{downbeat(bar), downbeat(bar + size_t(n))};
        bar += size_t(n);
        (*bars)[letter] += n;
        auto& list = out[letter];
        if (!list.empty() && s.begin - list.back().end < 0.5)
            list.back().end = s.end;
        else
            list.push_back(s);
    }
    return out;
}

struct Score
{
    double hit50 = 0;
    double start4 = 0;
    double overlap = 0;
};

Score judge(double start, const std::vector<Span>& occurrences)
{
    Score s;
    const double end = start + kWindow;
    double inside = 0;
    for (const Span& o : occurrences) {
        const double common = std::max(0.0, std::min(end, o.end) - std::max(start, o.begin));
        inside += common;
        if (common >= 0.5 * std::min(o.end - o.begin, kWindow))
            s.hit50 = 1;
        if (std::fabs(start - o.begin) <= 4.0)
            s.start4 = 1;
    }
    s.overlap = inside / kWindow;
    return s;
}

// The mean over every start (0.1 s steps) of a window in the song.
Score randomWindow(double duration, const std::vector<Span>& occurrences)
{
    Score mean;
    int count = 0;
    for (double t = 0; t + kWindow <= duration + 1e-9; t += 0.1, ++count) {
        const Score s = judge(t, occurrences);
        mean.hit50 += s.hit50;
        mean.start4 += s.start4;
        mean.overlap += s.overlap;
    }
    if (count > 0) {
        mean.hit50 /= count;
        mean.start4 /= count;
        mean.overlap /= count;
    }
    return mean;
}

struct Tally
{
    Score sum;
    int songs = 0;
    void add(const Score& s)
    {
        sum.hit50 += s.hit50;
        sum.start4 += s.start4;
        sum.overlap += s.overlap;
        ++songs;
    }
    void print(const char* name) const
    {
        const double n = std::max(1, songs);
        std::printf("  %-34s songs %3d  hit50 %.3f  start±4s %.3f  overlap %.3f\n", name, songs,
                    sum.hit50 / n, sum.start4 / n, sum.overlap / n);
    }
};

bool render(const QString& mid, const QString& wav)
{
    if (QFileInfo(wav).size() > 44)
        return true;
    QProcess p;
    p.start("fluidsynth", {"-ni", "-q", "-F", wav + ".part", "-r", "44100", kSoundFont, mid});
    if (!p.waitForFinished(-1) || p.exitCode() != 0)
        return false;
    QFile::remove(wav);
    return QFile::rename(wav + ".part", wav);
}

struct Song
{
    QString id;
    double duration = 0;
    std::vector<SpanFeatureFrame> frames;
    double frameMs = 0;
    long long durationMs = 0;
    std::vector<Span> chorus;   // empty when B occurs fewer than twice
    std::vector<Span> repeated; // empty when there is no melodic letter
};

// A tuning from "name=value,name=value"; unknown names are reported.
CSpanFinder::Tuning parseTuning(const QString& text)
{
    CSpanFinder::Tuning t;
    const std::map<QString, double*> fields = {
        {"keepShare", &t.keepShare},       {"mismatch", &t.mismatch},
        {"secondRepeat", &t.secondRepeat}, {"minLagShare", &t.minLagShare},
        {"levelWeight", &t.levelWeight},   {"introPenalty", &t.introPenalty},
        {"introShare", &t.introShare}};
    for (const QString& pair : text.split(',', Qt::SkipEmptyParts)) {
        const QString name = pair.section('=', 0, 0).trimmed();
        const double value = pair.section('=', 1).toDouble();
        if (name == "repeats")
            t.repeats = int(value);
        else if (fields.count(name))
            *fields.at(name) = value;
        else
            std::printf("  unknown tuning '%s'\n", qPrintable(name));
    }
    return t;
}

void evaluate(const std::vector<Song>& songs, const CSpanFinder::Tuning& tuning, bool withRandom)
{
    Tally chorus;
    Tally chorusRandom;
    Tally repeated;
    Tally repeatedRandom;
    std::vector<double> times;
    const CSpanFinder finder(tuning);
    for (const Song& song : songs) {
        QElapsedTimer timer;
        timer.start();
        const std::vector<SpanProposal> proposals =
            finder.propose(song.frames, song.frameMs, song.durationMs, qint64(kWindow * 1000));
        times.push_back(timer.nsecsElapsed() / 1e6);
        if (proposals.empty())
            continue;
        const double start = proposals.front().beginMs / 1000.0;
        if (!song.chorus.empty()) {
            chorus.add(judge(start, song.chorus));
            if (withRandom)
                chorusRandom.add(randomWindow(song.duration, song.chorus));
        }
        if (!song.repeated.empty()) {
            repeated.add(judge(start, song.repeated));
            if (withRandom)
                repeatedRandom.add(randomWindow(song.duration, song.repeated));
        }
    }
    chorus.print("against the chorus (B)");
    if (withRandom)
        chorusRandom.print("  a random window");
    repeated.print("against the most repeated section");
    if (withRandom)
        repeatedRandom.print("  a random window");
    std::printf("  proposals from the features: median %.1f ms a song\n", median(times));
}

void judgeSongs(const QString& cacheRoot)
{
    const QString data = QStringLiteral(TW_SHARED_DATA_DIR "/best-span/pop909");
    if (!QFileInfo(data).isDir()) {
        std::printf("suggestion quality: skipped, %s is absent\n", qPrintable(data));
        return;
    }
    if (QStandardPaths::findExecutable("fluidsynth").isEmpty() || !QFileInfo(kSoundFont).exists()) {
        std::printf("suggestion quality: skipped, fluidsynth or %s is missing "
                    "(scripts/install-deps.sh installs them)\n",
                    kSoundFont);
        return;
    }
    const QString cache = cacheRoot + "/tonewright-bench/best-span";
    QDir().mkpath(cache);
    const int limit = qEnvironmentVariableIntValue("TW_SUGGEST_SONGS");

    std::vector<Song> songs;
    std::vector<double> times;
    std::vector<double> renderTimes;
    const QStringList mids = QDir(data).entryList({"*.mid"}, QDir::Files, QDir::Name);
    for (const QString& midName : mids) {
        if (limit > 0 && int(songs.size()) >= limit)
            break;
        const QString id = QFileInfo(midName).completeBaseName();
        const QString wav = cache + "/" + id + ".wav";
        QElapsedTimer timer;
        timer.start();
        const bool cached = QFileInfo(wav).size() > 44;
        if (!render(data + "/" + midName, wav)) {
            std::printf("  %s: fluidsynth failed\n", qPrintable(id));
            continue;
        }
        if (!cached)
            renderTimes.push_back(timer.nsecsElapsed() / 1e6);
        tagWaveInfo wave;
        if (!waveLayout(wav, &wave))
            continue;
        // The whole suggestion, timed in its two halves as analyse() runs
        // them; the features are kept for the tunings below.
        timer.restart();
        const std::unique_ptr<CSpanFeatures> features = CSpanSuggest::readFeatures(wav, wave);
        if (!features || CSpanFinder()
                             .propose(features->frames(), features->frameMs(),
                                      features->durationMs(), qint64(kWindow * 1000))
                             .empty())
            continue;
        times.push_back(timer.nsecsElapsed() / 1e6);

        Song song;
        song.id = id;
        song.duration = double(wave.frameCount) / wave.sampleRate;
        song.frames = features->frames();
        song.frameMs = features->frameMs();
        song.durationMs = features->durationMs();
        std::map<QChar, int> bars;
        auto byLetter = phrases(data + "/" + id + ".beat", data + "/" + id + ".lab", &bars);
        const auto b = byLetter.find('B');
        if (b != byLetter.end() && b->second.size() >= 2)
            song.chorus = b->second;
        QChar most;
        int mostBars = 0;
        for (const auto& [letter, n] : bars) {
            if (letter.isUpper() && letter != 'X' && n > mostBars) {
                most = letter;
                mostBars = n;
            }
        }
        if (mostBars > 0)
            song.repeated = byLetter.at(most);
        songs.push_back(std::move(song));
    }
    std::printf("suggestion quality, first proposal, 30-second window, %zu songs:\n", songs.size());
    evaluate(songs, CSpanFinder::Tuning(), true);
    std::printf("  whole suggestion per song (WAV read, features, proposals): median %.1f ms, "
                "max %.1f ms\n",
                median(times), times.empty() ? 0.0 : *std::max_element(times.begin(), times.end()));
    if (!renderTimes.empty())
        std::printf("  (%zu songs rendered by fluidsynth this run, median %.0f ms each)\n",
                    renderTimes.size(), median(renderTimes));
    // TW_SUGGEST_TUNING="name=value,...;name=value,..." judges other weights.
    for (const QString& tuning :
         qEnvironmentVariable("TW_SUGGEST_TUNING").split(';', Qt::SkipEmptyParts)) {
        std::printf("tuning %s:\n", qPrintable(tuning));
        evaluate(songs, parseTuning(tuning), false);
    }
}

void timeFiveMinutes()
{
    const QString dir = QCoreApplication::applicationDirPath() + "/bench-data";
    QDir().mkpath(dir);
    const QString wav = dir + "/song-5min.wav";
    if (!QFileInfo::exists(wav)) {
        // The synthetic pop song, as the editor's temporary WAV holds it.
        const std::vector<qint16> song = twed::synthSong(44100, 300.0);
        tw::writeWav(wav, 44100, 2, 16, qint64(song.size() / 2), [&](qint64 frame, int channel) {
            return int(song[size_t(frame * 2 + channel)]);
        });
    }
    tagWaveInfo wave;
    if (!waveLayout(wav, &wave)) {
        std::printf("5-minute song: could not be made\n");
        return;
    }
    std::vector<double> analysis;
    std::vector<double> ffmpeg;
    for (int i = 0; i < 5; ++i) {
        QElapsedTimer t;
        t.start();
        const auto proposals = CSpanSuggest::analyse(wav, wave, 30000);
        analysis.push_back(t.nsecsElapsed() / 1e6);
        if (proposals.empty())
            std::printf("5-minute song: no proposal\n");
        t.restart();
        QProcess p;
        p.start("ffmpeg", {"-nostdin", "-v", "error", "-i", wav, "-f", "null", "-"});
        p.waitForFinished(-1);
        ffmpeg.push_back(t.nsecsElapsed() / 1e6);
    }
    std::printf("5-minute song from its temporary WAV, median of 5:\n"
                "  analysis %.1f ms   ffmpeg -i WAV -f null - %.1f ms   ratio %.2f\n",
                median(analysis), median(ffmpeg), median(analysis) / median(ffmpeg));
}

// Notes the first paint of a widget after arm().
class PaintWatch : public QObject
{
public:
    void arm(const QElapsedTimer* clock)
    {
        m_clock = clock;
        m_paintedMs = -1;
    }
    double paintedMs() const { return m_paintedMs; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && m_clock && m_paintedMs < 0)
            m_paintedMs = m_clock->nsecsElapsed() / 1e6;
        return QObject::eventFilter(watched, event);
    }

private:
    const QElapsedTimer* m_clock = nullptr;
    double m_paintedMs = -1;
};

void timeTheWindow()
{
    const QString wav = QCoreApplication::applicationDirPath() + "/bench-data/song-5min.wav";
    // Read before the editor opens the song: the engine holds one at a time.
    tagWaveInfo wave;
    if (!waveLayout(wav, &wave)) {
        std::printf("the 5-minute song could not be opened\n");
        return;
    }
    QWidget host;
    auto* progress = new CProgressDlg(&host);
    auto* wnd = new CWaveWnd(&host, progress);
    host.resize(897, 300);
    wnd->resize(897, 300);
    host.show();
    PaintWatch watch;
    wnd->installEventFilter(&watch);
    CRingToneNode song;
    song.LoadFromFile(wav);

    std::vector<double> opened, painted, ready, starts;
    for (int i = 0; i < 5; ++i) {
        QElapsedTimer clock;
        double openedMs = -1;
        double readyMs = -1;
        const auto o = QObject::connect(wnd, &CWaveWnd::waveOpened,
                                        [&] { openedMs = clock.nsecsElapsed() / 1e6; });
        const auto r = QObject::connect(&wnd->spanSuggest(), &CSpanSuggest::ready,
                                        [&] { readyMs = clock.nsecsElapsed() / 1e6; });
        clock.start();
        watch.arm(&clock);
        if (wnd->openFile(song) < 0) {
            std::printf("the editor could not open the 5-minute song\n");
            return;
        }
        QElapsedTimer limit;
        limit.start();
        while ((watch.paintedMs() < 0 || readyMs < 0) && limit.elapsed() < 20000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QObject::disconnect(o);
        QObject::disconnect(r);
        opened.push_back(openedMs);
        painted.push_back(watch.paintedMs());
        ready.push_back(readyMs);

        // What a start costs the GUI thread: the worker is made, nothing more.
        CSpanSuggest alone;
        QElapsedTimer t;
        t.start();
        alone.start(wav, wave, 30000);
        starts.push_back(t.nsecsElapsed() / 1e6);
        alone.clear();
    }
    wnd->closeWave();
    std::printf("the editor opening that song (a canonical WAV, copied, not decoded), median "
                "of 5:\n"
                "  waveOpened %.1f ms   first paint of the wave %.1f ms   proposals in %.1f ms\n"
                "  starting the analysis on the GUI thread: %.3f ms\n",
                median(opened), median(painted), median(ready), median(starts));
}

} // namespace

int main(int argc, char* argv[])
{
    // The renders are kept between runs in the user's cache, outside the
    // repository (the isolated environment below would lose them).
    const QString cacheRoot = qEnvironmentVariable("XDG_CACHE_HOME", QDir::homePath() + "/.cache");
    tw::isolateEnvironment();
    QApplication app(argc, argv);
    tw::setIdentity();
    timeFiveMinutes();
    timeTheWindow();
    judgeSongs(cacheRoot);
    return 0;
}
