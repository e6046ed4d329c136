// Render jobs that must not succeed, and jobs stopped half-way: each ends
// with a clear code, leaves no file behind and never touches the source.

#include "mediafixtures.h"
#include "renderwatch.h"
#include "testenv.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <vexa.h>

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace {

enum Defect
{
    UnknownTimeline,
    UnknownItem,
    NullIds,
    CountZero,
    CountTwo,
    NullParam,
    NullDestination,
    EmptyDestination,
    NullFormat,
    UnknownContainer,
    WavWithAac,
    Mp4WithPcm,
    Rate48k,
    Mono,
    TwentyFourBits,
    NegativeBitRate,
    EndBeforeStart
};

QByteArray digest(const QString& path)
{
    QFile f(path);
    f.open(QIODevice::ReadOnly);
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256);
}

// The bytes and the modification time of a source, to show that a failed
// job left it as it was.
struct SourceSnapshot
{
    explicit SourceSnapshot(const QString& file)
        : path(file), size(QFileInfo(file).size()), sha(digest(file)),
          modified(QFileInfo(file).lastModified())
    {
    }
    bool unchanged() const
    {
        return size > 0 && digest(path) == sha && QFileInfo(path).lastModified() == modified;
    }

    QString path;
    qint64 size;
    QByteArray sha;
    QDateTime modified;
};

// Removes the item of its own job from inside the progress callback.
struct SelfRemover
{
    std::atomic<bool> removed{false};
    std::atomic<int> result{1};
    std::atomic<int> callsAfter{0};

    static bool notify(tagKeloProgInfo* info, void* user)
    {
        auto* self = static_cast<SelfRemover*>(user);
        if (self->removed.load()) {
            ++self->callsAfter;
        } else if (info->nProgress > 0) {
            self->removed.store(true);
            self->result.store(KeloRemoveMedia(info->nTimeline, info->nMedia));
        }
        return true;
    }
};

} // namespace

Q_DECLARE_METATYPE(Defect)

class TestKeloRunFailure : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir{QDir::tempPath() + "/tw-kelofail-XXXXXX"};
    int m_timeline = 0;
    QString m_flac;
    QString m_long; // 60 s, long enough to be stopped half-way
    QString m_badFlac, m_badMp3;

    QString outDir() const { return m_dir.path() + "/out"; }
    QStringList outFiles() const
    {
        return QDir(outDir()).entryList(QDir::Files | QDir::Hidden | QDir::Dirs |
                                        QDir::NoDotAndDotDot);
    }

    static void writeFile(const QString& path, const QByteArray& bytes)
    {
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }

    static QByteArray noise(int size)
    {
        QByteArray b(size, '\0');
        QRandomGenerator gen(7);
        for (char& c : b)
            c = char(gen.bounded(256));
        return b;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        QVERIFY(QDir().mkpath(outDir()));
        m_timeline = CreateTimelineEx("com.vandrel.tonewright", -1);
        m_flac = tw::flacFixture(3);
        QVERIFY(!m_flac.isEmpty());
        m_long = m_dir.path() + "/long.wav";
        QVERIFY(tw::writeWav(m_long, 44100, 2, 16, 60LL * 44100,
                             [](qint64 i, int) { return int((i * 37) % 20000) - 10000; }));

        // A FLAC whose metadata is intact and whose frames are noise.
        QFile flac(m_flac);
        QVERIFY(flac.open(QIODevice::ReadOnly));
        const QByteArray good = flac.readAll();
        int at = 4;
        for (;;) {
            const bool lastBlock = quint8(good[at]) & 0x80;
            const int length =
                (quint8(good[at + 1]) << 16) | (quint8(good[at + 2]) << 8) | quint8(good[at + 3]);
            at += 4 + length;
            if (lastBlock)
                break;
        }
        m_badFlac = m_dir.path() + "/noise frames.flac";
        writeFile(m_badFlac, good.left(at) + noise(300000));
        // An MP3 whose first frames are good and the rest noise.
        QFile mp3(tw::mp3Fixture(5));
        QVERIFY(mp3.open(QIODevice::ReadOnly));
        m_badMp3 = m_dir.path() + "/cut by noise.mp3";
        writeFile(m_badMp3, mp3.read(4096) + noise(300000));
    }

    void cleanupTestCase() { DestroyTimeline(m_timeline); }

    void cleanup()
    {
        // No test leaves anything in the output directory.
        QCOMPARE(outFiles(), QStringList());
    }

    void shouldRefuseBadRequestsAtOnce_data()
    {
        QTest::addColumn<Defect>("defect");
        QTest::addColumn<int>("expected");
        QTest::newRow("unknown timeline") << UnknownTimeline << int(KELO_E_HANDLE);
        QTest::newRow("unknown item") << UnknownItem << int(KELO_E_HANDLE);
        QTest::newRow("null ids") << NullIds << int(KELO_E_ARGUMENT);
        QTest::newRow("count 0") << CountZero << int(KELO_E_ARGUMENT);
        QTest::newRow("count 2") << CountTwo << int(KELO_E_ARGUMENT);
        QTest::newRow("null parameters") << NullParam << int(KELO_E_ARGUMENT);
        QTest::newRow("null destination") << NullDestination << int(KELO_E_ARGUMENT);
        QTest::newRow("empty destination") << EmptyDestination << int(KELO_E_ARGUMENT);
        QTest::newRow("null container") << NullFormat << int(KELO_E_ARGUMENT);
        QTest::newRow("unknown container") << UnknownContainer << int(KELO_E_CODEC);
        QTest::newRow("wav with aac") << WavWithAac << int(KELO_E_CODEC);
        QTest::newRow("mp4 with pcm") << Mp4WithPcm << int(KELO_E_CODEC);
        QTest::newRow("48 kHz") << Rate48k << int(KELO_E_ARGUMENT);
        QTest::newRow("mono") << Mono << int(KELO_E_ARGUMENT);
        QTest::newRow("24 bits") << TwentyFourBits << int(KELO_E_ARGUMENT);
        QTest::newRow("negative bit rate") << NegativeBitRate << int(KELO_E_ARGUMENT);
        QTest::newRow("end before start") << EndBeforeStart << int(KELO_E_ARGUMENT);
    }

    void shouldRefuseBadRequestsAtOnce()
    {
        QFETCH(Defect, defect);
        QFETCH(int, expected);
        const QByteArray src = m_flac.toLocal8Bit();
        tagKeloMediaSrc s;
        std::memset(&s, 0, sizeof s);
        s.pszPath = src.constData();
        if (defect == EndBeforeStart) {
            s.llStart = 2000;
            s.llEnd = 1000;
        }
        int media = KeloAddMedia2(m_timeline, &s, 0, 0);
        QVERIFY(media >= 0);

        tw::RenderWatch watch;
        const QByteArray dest = (outDir() + "/refused.wav").toLocal8Bit();
        tagKeloRunParam p = tw::runParam("wav", dest, KELO_CODEC_PCM_S16LE, 128000, &watch);
        int timeline = m_timeline;
        const int* ids = &media;
        int count = 1;
        const tagKeloRunParam* param = &p;
        switch (defect) {
        case UnknownTimeline:
            timeline = 999999;
            break;
        case UnknownItem:
            media = 4242;
            break;
        case NullIds:
            ids = nullptr;
            break;
        case CountZero:
            count = 0;
            break;
        case CountTwo:
            count = 2;
            break;
        case NullParam:
            param = nullptr;
            break;
        case NullDestination:
            p.pszDest = nullptr;
            break;
        case EmptyDestination:
            p.pszDest = "";
            break;
        case NullFormat:
            p.pszFormat = nullptr;
            break;
        case UnknownContainer:
            p.pszFormat = "avi";
            break;
        case WavWithAac:
            p.nAudioCodec = KELO_CODEC_AAC;
            break;
        case Mp4WithPcm:
            p.pszFormat = "mp4";
            break;
        case Rate48k:
            p.nSampleRate = 48000;
            break;
        case Mono:
            p.nChannels = 1;
            break;
        case TwentyFourBits:
            p.nBitsPerSample = 24;
            break;
        case NegativeBitRate:
            p.nAudioBitRate = -1;
            break;
        case EndBeforeStart:
            break;
        }
        QCOMPARE(KeloRun(timeline, ids, count, param), expected);
        QTest::qWait(50);
        QCOMPARE(watch.count(), 0); // refused at once: no job, no calls
    }

    void shouldFailForDestinationThatCannotBeWritten_data()
    {
        QTest::addColumn<QString>("dest");
        QTest::addColumn<QByteArray>("format");
        const QString missing = m_dir.path() + "/no such folder/tone.wav";
        const QString underFile = m_dir.path() + "/long.wav/tone.m4r";
        QTest::newRow("missing folder, wav") << missing << QByteArray("wav");
        QTest::newRow("missing folder, mp4") << missing << QByteArray("mp4");
        QTest::newRow("below a file") << underFile << QByteArray("mp4");
        QTest::newRow("a folder's name, wav") << outDir() << QByteArray("wav");
        QTest::newRow("a folder's name, mp4") << outDir() << QByteArray("mp4");
    }

    void shouldFailForDestinationThatCannotBeWritten()
    {
        QFETCH(QString, dest);
        QFETCH(QByteArray, format);
        const QStringList before = QDir(m_dir.path()).entryList(QDir::AllEntries | QDir::Hidden);
        const SourceSnapshot original(m_flac);
        QVERIFY(original.size > 0);
        tw::RenderWatch watch;
        const int codec = format == "wav" ? KELO_CODEC_PCM_S16LE : KELO_CODEC_AAC;
        QCOMPARE(tw::startRender(m_timeline, {m_flac, dest, format, codec}, &watch), int(KELO_OK));
        QVERIFY(watch.waitEnd());
        QCOMPARE(watch.last().status, int(KELO_E_IO));
        QVERIFY(watch.last().progress < 10000);
        QCOMPARE(QDir(m_dir.path()).entryList(QDir::AllEntries | QDir::Hidden), before);
        QVERIFY(original.unchanged());
    }

    void shouldFailOnCorruptStream_data()
    {
        QTest::addColumn<QString>("source");
        QTest::newRow("flac frames replaced by noise") << m_badFlac;
        QTest::newRow("mp3 cut off by noise") << m_badMp3;
    }

    void shouldFailOnCorruptStream()
    {
        QFETCH(QString, source);
        const SourceSnapshot original(source);
        QVERIFY(original.size > 0);
        tw::RenderWatch watch;
        int media = -1;
        const QString dest = outDir() + "/corrupt.wav";
        // The headers are fine, so the item is taken; the damage shows when decoding.
        QCOMPARE(tw::startRender(m_timeline, {source, dest}, &watch, &media), int(KELO_OK));
        QVERIFY(media >= 0);
        QVERIFY(watch.waitEnd());
        QCOMPARE(watch.last().status, int(KELO_E_DECODE));
        QVERIFY(!QFile::exists(dest));
        QVERIFY(original.unchanged());
    }

    void shouldFailWhenSpanStartsPastTheEnd()
    {
        tw::RenderWatch watch;
        const QString dest = outDir() + "/late.m4r";
        QCOMPARE(tw::startRender(m_timeline,
                                 {m_flac, dest, "mp4", KELO_CODEC_AAC, 128000, 100000, 110000},
                                 &watch),
                 int(KELO_OK));
        QVERIFY(watch.waitEnd());
        QCOMPARE(watch.last().status, int(KELO_E_ARGUMENT));
    }

    void shouldFailWhenTheDiskFills_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<qint64>("limit");
        QTest::newRow("wav") << QByteArray("wav") << qint64(200000);
        QTest::newRow("mp4") << QByteArray("mp4") << qint64(100000);
    }

    void shouldFailWhenTheDiskFills()
    {
#ifdef Q_OS_LINUX
        QFETCH(QByteArray, format);
        QFETCH(qint64, limit);
        const SourceSnapshot original(m_long);
        QVERIFY(original.size > 0);
        // A file size limit makes writes fail as a full disk does.
        rlimit old;
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &old), 0);
        const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit small = old;
        small.rlim_cur = rlim_t(limit);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);

        tw::RenderWatch watch;
        const int codec = format == "wav" ? KELO_CODEC_PCM_S16LE : KELO_CODEC_AAC;
        const QString dest = outDir() + "/full." + format;
        const int rc = tw::startRender(m_timeline, {m_long, dest, format, codec}, &watch);
        const bool ended = watch.waitEnd();
        setrlimit(RLIMIT_FSIZE, &old);
        std::signal(SIGXFSZ, oldHandler);

        QCOMPARE(rc, int(KELO_OK));
        QVERIFY(ended);
        QCOMPARE(watch.last().status, int(KELO_E_IO));
        QVERIFY(original.unchanged());
#else
        QSKIP("needs a file size limit");
#endif
    }

    void shouldNeverWriteOverTheSource_data()
    {
        QTest::addColumn<QString>("dest");
        QTest::newRow("same path") << m_dir.path() + "/victim.flac";
        QTest::newRow("same file by another path") << m_dir.path() + "/out/../victim.flac";
        QTest::newRow("hard link") << m_dir.path() + "/out/link.flac";
    }

    void shouldNeverWriteOverTheSource()
    {
        QFETCH(QString, dest);
        const QString victim = m_dir.path() + "/victim.flac";
        QFile::remove(victim);
        QVERIFY(QFile::copy(m_flac, victim));
#ifdef Q_OS_LINUX
        if (dest.endsWith("link.flac"))
            QCOMPARE(
                ::link(QFile::encodeName(victim).constData(), QFile::encodeName(dest).constData()),
                0);
#endif
        const QByteArray before = digest(victim);
        const QDateTime modified = QFileInfo(victim).lastModified();

        tw::RenderWatch watch;
        QCOMPARE(tw::startRender(m_timeline, {victim, dest}, &watch), int(KELO_OK));
        QVERIFY(watch.waitEnd());
        QCOMPARE(watch.last().status, int(KELO_E_ARGUMENT));
        QCOMPARE(digest(victim), before);
        QCOMPARE(QFileInfo(victim).lastModified(), modified);
        QFile::remove(m_dir.path() + "/out/link.flac");
        QFile::remove(victim);
    }

    void shouldLeaveTheSourceAsItWasAfterAConversion()
    {
        const QByteArray before = digest(m_flac);
        const QDateTime modified = QFileInfo(m_flac).lastModified();
        tw::RenderWatch watch;
        const QString dest = outDir() + "/copy.wav";
        QCOMPARE(tw::startRender(m_timeline, {m_flac, dest}, &watch), int(KELO_OK));
        QVERIFY(watch.waitEnd());
        QCOMPARE(watch.last().status, int(KELO_OK));
        QCOMPARE(digest(m_flac), before);
        QCOMPARE(QFileInfo(m_flac).lastModified(), modified);
        QVERIFY(QFile::remove(dest));
    }

    void shouldCancelCleanly_data()
    {
        QTest::addColumn<bool>("destroyTimeline");
        QTest::newRow("DestroyTimeline") << true;
        QTest::newRow("KeloRemoveMedia") << false;
    }

    void shouldCancelCleanly()
    {
        QFETCH(bool, destroyTimeline);
        const int timeline = CreateTimelineEx("cancel", -1);
        tw::RenderWatch watch;
        int media = -1;
        const QString dest = outDir() + "/cancelled.m4r";
        QCOMPARE(tw::startRender(timeline, {m_long, dest, "mp4", KELO_CODEC_AAC}, &watch, &media),
                 int(KELO_OK));
        QVERIFY(watch.waitProgress(0));
        if (destroyTimeline) {
            QCOMPARE(DestroyTimeline(timeline), int(KELO_OK));
        } else {
            QCOMPARE(KeloRemoveMedia(timeline, media), int(KELO_OK));
            DestroyTimeline(timeline);
        }
        // Once the call returns the job is over: no more calls, nothing written.
        const int calls = watch.count();
        QTest::qWait(200);
        QCOMPARE(watch.count(), calls);
        QVERIFY(watch.last().progress < 10000);
        QVERIFY(watch.last().status >= 0);
    }

    void shouldLetTheCallbackRemoveItsOwnItem()
    {
        SelfRemover remover;
        const QByteArray src = m_long.toLocal8Bit();
        const QByteArray dest = (outDir() + "/self.m4r").toLocal8Bit();
        tagKeloMediaSrc s;
        std::memset(&s, 0, sizeof s);
        s.pszPath = src.constData();
        const int media = KeloAddMedia2(m_timeline, &s, 0, 0);
        tagKeloRunParam p = tw::runParam("mp4", dest, KELO_CODEC_AAC, 128000, nullptr);
        p.pUser = &remover;
        p.pfnNotify = &SelfRemover::notify;
        QCOMPARE(KeloRun(m_timeline, &media, 1, &p), int(KELO_OK));
        QTRY_VERIFY_WITH_TIMEOUT(remover.removed.load(), 30000);
        QCOMPARE(remover.result.load(), int(KELO_OK));
        // The job notices at its next step and removes its temporary file.
        QTRY_COMPARE_WITH_TIMEOUT(outFiles(), QStringList(), 30000);
        QTest::qWait(100);
        QCOMPARE(remover.callsAfter.load(), 0);
    }

    void shouldRefuseASecondJobForTheSameDestination()
    {
        tw::RenderWatch first;
        tw::RenderWatch second;
        const QString dest = outDir() + "/busy.m4r";
        QCOMPARE(tw::startRender(m_timeline, {m_long, dest, "mp4", KELO_CODEC_AAC}, &first),
                 int(KELO_OK));
        QCOMPARE(tw::startRender(m_timeline, {m_flac, dest, "mp4", KELO_CODEC_AAC}, &second),
                 int(KELO_E_BUSY));
        QVERIFY(first.waitEnd());
        QCOMPARE(first.last().status, int(KELO_OK));
        QCOMPARE(second.count(), 0);
        QVERIFY(QFile::remove(dest));
    }

    void shouldStopEveryJobOfADestroyedTimeline()
    {
        const int timeline = CreateTimelineEx("many", -1);
        tw::RenderWatch watches[3];
        for (int i = 0; i < 3; ++i)
            QCOMPARE(tw::startRender(
                         timeline,
                         {m_long, outDir() + QString("/job%1.m4r").arg(i), "mp4", KELO_CODEC_AAC},
                         &watches[i]),
                     int(KELO_OK));
        QVERIFY(watches[0].waitProgress(0));
        QCOMPARE(DestroyTimeline(timeline), int(KELO_OK));
        for (auto& w : watches)
            QVERIFY(w.last().progress < 10000);
    }
};

TW_TEST_MAIN(TestKeloRunFailure)
#include "tst_kelorunfailure.moc"
