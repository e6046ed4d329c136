// CProgressDlg: the animation with the percentage on top, the percentages
// of one or two phases, the wait that ends on 10000 or a failure, and real
// conversions waited for through it.

#include "mediafixtures.h"
#include "testenv.h"

#include "engine/convertwraper.h"
#include "engine/progressdlg.h"

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QMovie>
#include <QTemporaryDir>
#include <QTimer>

#include <atomic>
#include <thread>

namespace {

QLabel* percentLabel(const QWidget& dlg)
{
    return dlg.findChild<QLabel*>("percentLabel");
}

// Ends a wait that would otherwise hang, by reporting a failure; fired()
// tells a failure the engine reported from one the watchdog made up.
class Watchdog
{
public:
    explicit Watchdog(CProgressDlg* dlg, int ms = 20000)
    {
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, dlg, [this, dlg] {
            m_fired = true;
            dlg->setProgress(0, -999);
        });
        m_timer.start(ms);
    }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    bool fired() const { return m_fired; }

private:
    QTimer m_timer;
    bool m_fired = false;
};

QLabel* animationLabel(const QWidget& dlg)
{
    for (QLabel* l : dlg.findChildren<QLabel*>())
        if (l->movie())
            return l;
    return nullptr;
}

} // namespace

class TestProgressDlg : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir{QDir::tempPath() + "/tw-progress-XXXXXX"};

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void shouldShowTheProgressAnimationWithThePercentOnTop()
    {
        QWidget parent;
        CProgressDlg dlg(&parent);
        QLabel* animation = animationLabel(dlg);
        QVERIFY(animation);
        QCOMPARE(animation->alignment(), Qt::AlignCenter);
        QVERIFY(animation->movie()->isValid());
        QCOMPARE(animation->movie()->fileName(), QString(":/animations/progress"));
        QCOMPARE(animation->movie()->state(), QMovie::Running);
        QVERIFY(dlg.layout());
        QCOMPARE(dlg.layout()->indexOf(animation), 0);
        QVERIFY(!dlg.isWindow()); // a plain child widget

        QLabel* percent = percentLabel(dlg);
        QVERIFY(percent);
        QCOMPARE(dlg.layout()->indexOf(percent), -1); // laid over, not in the layout
        QCOMPARE(dlg.layout()->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(dlg.layout()->spacing(), 0);
    }

    void shouldCentreThePercentOverTheAnimation()
    {
        CProgressDlg dlg;
        dlg.resize(400, 300);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        QCOMPARE(dlg.start(1.0f, 0.0f, false), 1);
        QLabel* percent = percentLabel(dlg);
        QCOMPARE(percent->pos(), QPoint(200 - percent->width() / 2, 150 - percent->height() / 2));
        // Raised above the animation: it is what sits at the centre.
        QCOMPARE(dlg.childAt(200, 150), percent);
    }

    void shouldPaintTheSpinner()
    {
        CProgressDlg dlg;
        dlg.resize(200, 200);
        dlg.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dlg));
        QImage image(dlg.size(), QImage::Format_ARGB32);
        image.fill(Qt::white);
        dlg.render(&image);
        int blue = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                if (c.blue() > 200 && c.red() < 120)
                    ++blue;
            }
        QVERIFY2(blue > 50, qPrintable(QString::number(blue))); // the spinner's dots
    }

    void shouldShow99PercentWithoutWaiting()
    {
        CProgressDlg dlg;
        QCOMPARE(dlg.start(1.0f, 0.0f, false), 1);
        QCOMPARE(percentLabel(dlg)->text(), QString("99%"));
    }

    void shouldShowPhasePercentages_data()
    {
        QTest::addColumn<float>("weight");
        QTest::addColumn<float>("offset");
        QTest::addColumn<QStringList>("shown"); // after 0, after 5000, at the end
        QTest::newRow("one phase") << 1.0f << 0.0f << QStringList{"0%", "50%", "100%"};
        QTest::newRow("first half") << 0.5f << 0.0f << QStringList{"0%", "25%", "50%"};
        QTest::newRow("second half") << 0.5f << 0.5f << QStringList{"50%", "75%", "100%"};
    }

    void shouldShowPhasePercentages()
    {
        QFETCH(float, weight);
        QFETCH(float, offset);
        QFETCH(QStringList, shown);
        CProgressDlg dlg;
        QLabel* label = percentLabel(dlg);
        QStringList seen;
        // The engine reports 0, then 5000, then 10000; each report is
        // looked at one poll later.
        QTimer::singleShot(20, &dlg, [&] { dlg.setProgress(0, 0); });
        QTimer::singleShot(120, &dlg, [&] {
            seen << label->text();
            dlg.setProgress(5000, 0);
        });
        QTimer::singleShot(220, &dlg, [&] {
            seen << label->text();
            dlg.setProgress(10000, 0);
        });
        Watchdog watchdog(&dlg);
        QCOMPARE(dlg.start(weight, offset, true), 1);
        seen << label->text();
        QCOMPARE(seen, shown);
    }

    void shouldEndWithMinus2OnAFailureAndKeepTheLastPercent()
    {
        CProgressDlg dlg;
        QTimer::singleShot(20, &dlg, [&] { dlg.setProgress(4000, 0); });
        QTimer::singleShot(120, &dlg, [&] { dlg.setProgress(4000, -7); });
        Watchdog watchdog(&dlg);
        QCOMPARE(dlg.start(1.0f, 0.0f, true), -2);
        QCOMPARE(percentLabel(dlg)->text(), QString("40%"));

        // The status stays negative: the next phase fails on its first pass...
        QCOMPARE(dlg.start(1.0f, 0.0f, false), -2);
        QCOMPARE(dlg.start(1.0f, 0.0f, true), -2);
        // ...until the engine reports a good status again.
        dlg.setProgress(0, 0);
        QCOMPARE(dlg.start(1.0f, 0.0f, false), 1);
        QCOMPARE(percentLabel(dlg)->text(), QString("99%"));
    }

    void shouldIgnoreFinish()
    {
        CProgressDlg dlg;
        dlg.setProgress(4000, -7);
        dlg.finish();
        QCOMPARE(dlg.start(1.0f, 0.0f, false), -2); // finish() changed nothing
    }

    void shouldTakeProgressFromAnotherThread()
    {
        CProgressDlg dlg;
        std::atomic<bool> go{false};
        std::thread engine([&] {
            while (!go.load())
                std::this_thread::yield();
            for (int p = 0; p <= 10000; p += 250) {
                dlg.setProgress(p, 0);
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
            }
        });
        QTimer::singleShot(0, &dlg, [&] { go.store(true); });
        Watchdog watchdog(&dlg);
        const int rc = dlg.start(1.0f, 0.0f, true);
        engine.join();
        QCOMPARE(rc, 1);
        QCOMPARE(percentLabel(dlg)->text(), QString("100%"));
    }

    void shouldWaitForRealConversions_data()
    {
        QTest::addColumn<QString>("source");
        QTest::newRow("mp3") << tw::mp3Fixture(5);
        QTest::newRow("flac") << tw::flacFixture(3);
        QTest::newRow("video") << tw::mp4AvFixture(3);
    }

    void shouldWaitForRealConversions()
    {
        QFETCH(QString, source);
        CProgressDlg dlg;
        // Small files end at once; many in a row show that the end of a job
        // never slips past the start of the wait.
        for (int i = 0; i < 10; ++i) {
            const QByteArray dest = (m_dir.path() + QString("/real %1.wav").arg(i)).toLocal8Bit();
            QCOMPARE(CConvertWraper::instance()->convertTo(source.toLocal8Bit().constData(),
                                                           dest.constData(), "wav",
                                                           KELO_CODEC_PCM_S16LE, 128000, &dlg),
                     1);
            Watchdog watchdog(&dlg);
            QCOMPARE(dlg.start(1.0f, 0.0f, true), 1);
            QCOMPARE(percentLabel(dlg)->text(), QString("100%"));
            QVERIFY(QFile::exists(QString::fromLocal8Bit(dest)));
        }
    }

    void shouldSeeTheEndOfAJobThatEndedBeforeTheWait()
    {
        CProgressDlg dlg;
        const QByteArray src = tw::flacFixture(3).toLocal8Bit();
        const QByteArray dest = (m_dir.path() + "/early.wav").toLocal8Bit();
        QCOMPARE(CConvertWraper::instance()->convertTo(src.constData(), dest.constData(), "wav",
                                                       KELO_CODEC_PCM_S16LE, 128000, &dlg),
                 1);
        // The job is over long before the wait starts (no events meanwhile);
        // its calls wait in the event queue, so the wait still sees the end.
        const QString path = QString::fromLocal8Bit(dest);
        QElapsedTimer waited;
        waited.start();
        while (!QFile::exists(path) && waited.elapsed() < 30000)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        QVERIFY(QFile::exists(path));
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        Watchdog watchdog(&dlg);
        QCOMPARE(dlg.start(1.0f, 0.0f, true), 1);
        QVERIFY(!watchdog.fired());
        QCOMPARE(percentLabel(dlg)->text(), QString("100%"));
    }

    void shouldReportAFailedConversionAsMinus2()
    {
        CProgressDlg dlg;
        const QByteArray src = tw::flacFixture(3).toLocal8Bit();
        const QByteArray dest = (m_dir.path() + "/missing folder/x.m4r").toLocal8Bit();
        QCOMPARE(CConvertWraper::instance()->convertTo(src.constData(), dest.constData(), "mp4",
                                                       KELO_CODEC_AAC, 128000, &dlg),
                 1);
        Watchdog watchdog(&dlg);
        QCOMPARE(dlg.start(0.5f, 0.0f, true), -2);
        // The engine reported the failure itself; the wait did not hang.
        QVERIFY(!watchdog.fired());
    }
};

TW_TEST_MAIN(TestProgressDlg)
#include "tst_progressdlg.moc"
