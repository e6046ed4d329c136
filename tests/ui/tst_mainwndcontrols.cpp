// The rows around the editor, driven through their widgets: the state
// before a file, what opening a song sets, the time fields in both
// directions, the selection length, fades, zoom and volume, the play and
// preview buttons, closing, and "Start to Create" — the name, the safe file
// name, the question before replacing a ringtone, the 40-second warning, a
// cancelled name, a failed export with its try-again, the sharing link.

#include "editor/wavemodel.h"
#include "editor/waveplayback.h"
#include "editor/wavewnd.h"
#include "engine/platformfolders.h"
#include "engine/timeconvert.h"
#include "library/ItunesWrap.h"
#include "loudsongs.h"
#include "mainwndfixture.h"
#include "mediafixtures.h"
#include "modalanswer.h"
#include "testenv.h"
#include "tests/cli/clirun.h"
#include "tests/library/libraryfixture.h"
#include "ui/tickerlabel.h"
#include "urlcatcher.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSlider>
#include <QSpinBox>
#include <QTimeEdit>
#include <QTimer>
#include <QToolButton>
#include <QUrlQuery>

namespace {

QTime at(long ms)
{
    return CTimeConvert::longToTime(ms);
}

} // namespace

class TestMainWndControls : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    std::unique_ptr<CMainWnd> m_wnd;
    QString m_song; // 60 s

    template <typename T> T* get(const char* name) const
    {
        T* w = m_wnd->findChild<T*>(name);
        if (!w)
            qFatal("no %s", name);
        return w;
    }
    CWaveWnd* editor() const { return m_wnd->waveWnd(); }
    long long ms(QTime t) const { return CTimeConvert::timeToLong(t); }
    QString ringtoneDir() const { return CItunesWraper::instance()->ringtoneDir(); }
    void openSong()
    {
        m_wnd->importWave(m_song);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
    }
    // A selection the phones take: 0:10 to 0:40.
    void selectThirtySeconds()
    {
        editor()->setBeginTime(at(10000));
        editor()->setEndTime(at(40000));
        QCOMPARE(ms(editor()->getEndTime()) - ms(editor()->getBeginTime()), 30000LL);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        lib::makeLibrary(m_dir);
        m_song = tw::mp3Fixture(60);
        QVERIFY(!m_song.isEmpty());
    }

    void init()
    {
        m_wnd = std::make_unique<CMainWnd>();
        m_wnd->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_wnd.get()));
    }

    void cleanup()
    {
        m_wnd.reset();
        QFile::remove(ringtoneDir()); // a file left in the folder's place
        QDir(ringtoneDir()).removeRecursively();
        QDir cache(programCacheDir());
        const QStringList made{"*.m4r", "*.ogg", "*.mp3", "*.m4a"};
        for (const QString& name : cache.entryList(made, QDir::Files))
            cache.remove(name);
        QSettings().remove("Ringtone/Kind");
        QSettings().remove("Ringtone/Normalize");
    }

    // The number of the footer's loudness ("−17.2 LUFS"); NaN when it shows none.
    double shownLoudness() const
    {
        QString text = get<QLabel>("loudnessLabel")->text();
        if (!text.endsWith(" LUFS"))
            return std::nan("");
        text.chop(5);
        bool ok = false;
        const double v = text.replace(QChar(0x2212), QLatin1Char('-')).toDouble(&ok);
        return ok ? v : std::nan("");
    }

    void shouldWaitWithDefaultsBeforeAFileOpens()
    {
        QVERIFY(!get<QCheckBox>("fadeInCheckBox")->isChecked());
        QVERIFY(!get<QCheckBox>("fadeOutCheckBox")->isChecked());
        QCOMPARE(get<QCheckBox>("fadeInCheckBox")->text(), QString("Fade  in"));
        QCOMPARE(get<QCheckBox>("fadeOutCheckBox")->text(), QString("Fade out"));
        for (const char* name : {"fadeInSpinBox", "fadeOutSpinBox"}) {
            QCOMPARE(get<QSpinBox>(name)->value(), 5);
            QVERIFY(!get<QSpinBox>(name)->isEnabled());
        }
        QCOMPARE(get<QTimeEdit>("beginTime")->time(), QTime(0, 0));
        QCOMPARE(get<QTimeEdit>("endTime")->time(), QTime(0, 0));
        QCOMPARE(get<QTimeEdit>("beginTime")->displayFormat(), QString("h:mm:ss"));
        QCOMPARE(get<QTimeEdit>("endTime")->currentSection(), QDateTimeEdit::SecondSection);
        QCOMPARE(get<QLabel>("beginLabel")->text(), QString("Start Time"));
        QCOMPARE(get<QLabel>("endLabel")->text(), QString("End  Time"));
        QCOMPARE(get<QSlider>("volumeSlider")->value(), 100);
        QCOMPARE(get<QSlider>("volumeSlider")->maximum(), 256);
        QCOMPARE(get<QSlider>("zoomSlider")->singleStep(), 5);
        QCOMPARE(get<QLabel>("playTimeLabel")->text(), QString("00:00:00/00:00:00"));
        QCOMPARE(get<QLabel>("selectTimelenLabel")->text(), QString("0"));
        QVERIFY(get<QPushButton>("playBtn")->isCheckable());
        QVERIFY(get<QPushButton>("previewBtn")->isCheckable());
        QCOMPARE(get<QPushButton>("startbtn")->text(), QString());
        QCOMPARE(get<QPushButton>("startbtn")->toolTip(), QString("Start to Create (Ctrl+S)"));
        QCOMPARE(get<QPushButton>("closeBtn")->toolTip(), QString("Quit Editing"));
        QCOMPARE(get<QToolButton>("twitter")->toolTip(), QString("Tweet Your Ringtone"));
        QCOMPARE(get<QToolButton>("facebook")->toolTip(), QString("Find us on Facebook"));
        auto* kinds = get<QComboBox>("ringtoneKindCombo");
        QStringList labels;
        for (int i = 0; i < kinds->count(); ++i)
            labels << kinds->itemText(i);
        QCOMPARE(labels, QStringList({"iPhone ringtone", "iPhone alert tone", "Android (Ogg)",
                                      "Android (MP3)", "AAC audio (.m4a)"}));
        QCOMPARE(kinds->currentData().toString(), QString("iphone"));
        auto* normalize = get<QComboBox>("normalizeCombo");
        QStringList choices;
        for (int i = 0; i < normalize->count(); ++i)
            choices << normalize->itemText(i);
        QCOMPARE(choices, QStringList({"Off", QString::fromUtf8("Standard (\u221214 LUFS)"),
                                       QString::fromUtf8("Loud (\u221211 LUFS)")}));
        QCOMPARE(normalize->currentData().toString(), QString("off"));
        QCOMPARE(get<QLabel>("normalizeLabel")->buddy(), normalize);
        QCOMPARE(get<QLabel>("loudnessLabel")->text(), QString());
        QVERIFY(get<QSlider>("volumeSlider")->isEnabled());
    }

    void shouldShowTheSelectionsLoudnessInTheFooter()
    {
        openSong();
        selectThirtySeconds();
        QTRY_VERIFY_WITH_TIMEOUT(!std::isnan(shownLoudness()), 20000);
        // As ffmpeg reads the same thirty seconds of the song.
        const tw::LoudnessReading span = tw::ffmpegLoudness(m_song, 10, 30);
        QVERIFY(span.ok);
        QVERIFY2(std::fabs(shownLoudness() - span.lufs) < 0.3,
                 qPrintable(QString("%1 against %2").arg(shownLoudness()).arg(span.lufs)));
        QVERIFY(get<QLabel>("loudnessLabel")->toolTip().contains("dBTP"));
        const double full = shownLoudness();

        // Half the volume: the old figure goes at once, the new one follows.
        get<QSlider>("volumeSlider")->setValue(50);
        QCOMPARE(get<QLabel>("loudnessLabel")->text(), QString::fromUtf8("Measuring\u2026"));
        QTRY_VERIFY_WITH_TIMEOUT(!std::isnan(shownLoudness()), 20000);
        QVERIFY2(std::fabs(shownLoudness() - (full - 6.0)) < 0.15,
                 qPrintable(QString::number(shownLoudness())));
        // A fade-in takes loudness away too.
        get<QSlider>("volumeSlider")->setValue(100);
        QTRY_VERIFY_WITH_TIMEOUT(std::fabs(shownLoudness() - full) < 0.05, 20000);
        get<QCheckBox>("fadeInCheckBox")->setChecked(true);
        get<QSpinBox>("fadeInSpinBox")->setValue(10);
        QTRY_VERIFY_WITH_TIMEOUT(!std::isnan(shownLoudness()) && shownLoudness() < full - 0.3,
                                 20000);
        // A longer selection: the fade is a smaller part of it, the figure rises.
        const double faded = shownLoudness();
        editor()->setEndTime(at(59000));
        QCOMPARE(get<QLabel>("loudnessLabel")->text(), QString::fromUtf8("Measuring\u2026"));
        QTRY_VERIFY_WITH_TIMEOUT(!std::isnan(shownLoudness()), 20000);
        QVERIFY2(shownLoudness() > faded + 0.2 && shownLoudness() < full,
                 qPrintable(QString("%1 after %2").arg(shownLoudness()).arg(faded)));
    }

    void shouldNormalizeFromTheFooterAndLockTheVolume()
    {
        openSong();
        selectThirtySeconds();
        auto* normalize = get<QComboBox>("normalizeCombo");
        normalize->setCurrentIndex(normalize->findData("loud"));
        // The target sets the gain: the volume has no say meanwhile.
        QVERIFY(!get<QSlider>("volumeSlider")->isEnabled());
        QVERIFY(!get<QToolButton>("volumeAdd")->isEnabled());
        QVERIFY(!get<QToolButton>("volumeReduce")->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(!std::isnan(shownLoudness()), 20000);
        QCOMPARE(shownLoudness(), -11.0);

        tw::ModalAnswer answers;
        answers.then(mw::typeName("Loud Tone"));
        get<QPushButton>("startbtn")->click();
        const tw::LoudnessReading written = tw::ffmpegLoudness(ringtoneDir() + "/Loud Tone.m4r");
        QVERIFY(written.ok);
        QVERIFY2(std::fabs(written.lufs + 11.0) <= 0.5, qPrintable(QString::number(written.lufs)));
        QVERIFY2(written.truePeak <= -1.0, qPrintable(QString::number(written.truePeak)));

        // Remembered: a new window starts with it.
        QCOMPARE(QSettings().value("Ringtone/Normalize").toString(), QString("loud"));
        m_wnd = std::make_unique<CMainWnd>();
        QCOMPARE(get<QComboBox>("normalizeCombo")->currentData().toString(), QString("loud"));
        QVERIFY(!get<QSlider>("volumeSlider")->isEnabled());
        QCOMPARE(editor()->playback().loudnessTarget(), -11.0);
        get<QComboBox>("normalizeCombo")->setCurrentIndex(0);
        QVERIFY(get<QSlider>("volumeSlider")->isEnabled());
        QVERIFY(std::isnan(editor()->playback().loudnessTarget()));
    }

    void shouldSetTheRowsWhenASongOpens()
    {
        openSong();
        QCOMPARE(get<CTickerLabel>("titleLabel")->text(), QFileInfo(m_song).completeBaseName());
        QVERIFY(!get<QLabel>("picLabel")->pixmap().isNull());
        QCOMPARE(get<QTimeEdit>("beginTime")->time(), QTime(0, 0));
        QCOMPARE(get<QTimeEdit>("endTime")->time(), at(40000));
        QCOMPARE(get<QLabel>("selectTimelenLabel")->text(), QString("40s"));
        // The start stays 5 s before the end; the end 5 s after the start.
        QCOMPARE(get<QTimeEdit>("beginTime")->maximumTime(), at(35000));
        QCOMPARE(get<QTimeEdit>("endTime")->minimumTime(), at(5000));
        QCOMPARE(get<QTimeEdit>("endTime")->maximumTime(), editor()->getMaxTime());
        QCOMPARE(get<QSlider>("zoomSlider")->value(), 10);
        QCOMPARE(get<QSlider>("zoomSlider")->maximum(), 50);
        QCOMPARE(get<QSlider>("zoomSlider")->minimum(), int(editor()->getMinZoom() * 10));
        QCOMPARE(get<QSpinBox>("fadeInSpinBox")->maximum(), int(ms(editor()->getMaxTime())));
        QCOMPARE(get<QSpinBox>("fadeInSpinBox")->value(), 5);
        QCOMPARE(get<QLabel>("playTimeLabel")->text(), QString("00:00:00/00:01:00"));
    }

    void shouldShowTheSelectionLengthInWholeSeconds()
    {
        openSong();
        m_wnd->selectchange(at(10000), at(40000));
        QCOMPARE(get<QLabel>("selectTimelenLabel")->text(), QString("30s"));
        // Each end truncated to seconds before the difference: 40 - 10.
        m_wnd->selectchange(at(10900), at(40100));
        QCOMPARE(get<QLabel>("selectTimelenLabel")->text(), QString("30s"));
    }

    void shouldShowTheEditorsSelectionAfterSetStartPastTheEnd()
    {
        openSong(); // 0:00 to 0:40 of 1:00
        editor()->model().setPlayPos(50000);
        get<QPushButton>("setBeginbtn")->click();
        // The begin moved to the play position and took the end along.
        QCOMPARE(ms(editor()->getBeginTime()), 50000LL);
        QCOMPARE(get<QTimeEdit>("beginTime")->time(), editor()->getBeginTime());
        QCOMPARE(get<QTimeEdit>("endTime")->time(), editor()->getEndTime());
        // And back: the end set before the begin.
        editor()->model().setPlayPos(8000);
        get<QPushButton>("setEndBtn")->click();
        QCOMPARE(ms(editor()->getEndTime()), 8000LL);
        QCOMPARE(get<QTimeEdit>("beginTime")->time(), editor()->getBeginTime());
        QCOMPARE(get<QTimeEdit>("endTime")->time(), editor()->getEndTime());
    }

    void shouldShowTheEditorsSelectionAfterAnyChange_data()
    {
        QTest::addColumn<qlonglong>("begin");
        QTest::addColumn<qlonglong>("end");
        QTest::newRow("late span") << 45000LL << 58000LL;
        QTest::newRow("early span") << 0LL << 6000LL;
        QTest::newRow("whole song") << 0LL << 59000LL;
        QTest::newRow("back to the middle") << 20000LL << 30000LL;
    }

    void shouldShowTheEditorsSelectionAfterAnyChange()
    {
        QFETCH(qlonglong, begin);
        QFETCH(qlonglong, end);
        openSong();
        // From a late selection to the row's, in one step from the model.
        editor()->model().setSelection(40000, 55000);
        m_wnd->selectchange(editor()->getBeginTime(), editor()->getEndTime());
        editor()->model().setSelection(begin, end);
        m_wnd->selectchange(editor()->getBeginTime(), editor()->getEndTime());
        QCOMPARE(ms(get<QTimeEdit>("beginTime")->time()), begin);
        QCOMPARE(ms(get<QTimeEdit>("endTime")->time()), end);
    }

    void shouldMoveTheEditorFromTheTimeFields()
    {
        openSong();
        get<QTimeEdit>("endTime")->setTime(at(50000));
        QCOMPARE(editor()->getEndTime(), at(50000));
        QCOMPARE(get<QLabel>("selectTimelenLabel")->text(), QString("50s"));
        // A later start drags the end along (the editor keeps the length),
        // up to the song's end.
        get<QTimeEdit>("beginTime")->setTime(at(20000));
        QCOMPARE(editor()->getBeginTime(), at(20000));
        QCOMPARE(editor()->getEndTime(), at(60000));
        QCOMPARE(get<QTimeEdit>("endTime")->time(), at(60000));
        QCOMPARE(get<QLabel>("selectTimelenLabel")->text(), QString("40s"));
        // The start field cannot come closer than 5 s to the end.
        QCOMPARE(get<QTimeEdit>("beginTime")->maximumTime(), at(55000));
        get<QTimeEdit>("beginTime")->setTime(at(59000));
        QCOMPARE(get<QTimeEdit>("beginTime")->time(), at(55000));
        QVERIFY(ms(editor()->getEndTime()) - ms(editor()->getBeginTime()) >= 5000);
    }

    void shouldIgnoreAnEndAtTheVeryEnd()
    {
        openSong();
        const QTime total = editor()->getMaxTime();
        get<QTimeEdit>("endTime")->setTime(total);
        QCOMPARE(editor()->getEndTime(), at(40000));
        // A start at 0:00:00 is taken, though.
        get<QTimeEdit>("beginTime")->setTime(at(1000));
        get<QTimeEdit>("beginTime")->setTime(QTime(0, 0));
        QCOMPARE(editor()->getBeginTime(), QTime(0, 0));
    }

    void shouldSwitchFadesWithTheirBoxes()
    {
        openSong();
        get<QCheckBox>("fadeInCheckBox")->click();
        QVERIFY(get<QSpinBox>("fadeInSpinBox")->isEnabled());
        QVERIFY(editor()->playback().isFadeInOn());
        get<QSpinBox>("fadeInSpinBox")->setValue(3);
        QCOMPARE(editor()->playback().getFadeInLength(), 3);
        get<QCheckBox>("fadeInCheckBox")->click();
        QVERIFY(!get<QSpinBox>("fadeInSpinBox")->isEnabled());
        QVERIFY(!editor()->playback().isFadeInOn());

        get<QCheckBox>("fadeOutCheckBox")->click();
        QVERIFY(get<QSpinBox>("fadeOutSpinBox")->isEnabled());
        QVERIFY(editor()->playback().isFadeOutOn());
    }

    void shouldKeepZoomAndVolumeInStepBothWays()
    {
        openSong();
        get<QSlider>("zoomSlider")->setValue(25);
        QCOMPARE(editor()->model().msPerPixel(), kMsPerPixelAtZoom1 / 2.5f);
        editor()->zoom(1.75f);
        QCOMPARE(get<QSlider>("zoomSlider")->value(), 17);
        get<QToolButton>("zoomInBtn")->click();
        QCOMPARE(get<QSlider>("zoomSlider")->value(),
                 int(kMsPerPixelAtZoom1 / editor()->model().msPerPixel() * 10));

        get<QSlider>("volumeSlider")->setValue(150);
        QCOMPARE(editor()->playback().volume(), 150);
        get<QToolButton>("volumeAdd")->click();
        QCOMPARE(editor()->playback().volume(), 160);
        QCOMPARE(get<QSlider>("volumeSlider")->value(), 160);
        get<QToolButton>("volumeReduce")->click();
        QCOMPARE(get<QSlider>("volumeSlider")->value(), 150);
    }

    void shouldShowPlayAndPreviewOnTheirButtons()
    {
        openSong();
        auto* play = get<QPushButton>("playBtn");
        auto* preview = get<QPushButton>("previewBtn");
        play->click();
        QVERIFY(play->isChecked());
        QVERIFY(!preview->isChecked());
        QCOMPARE(play->toolTip(), QString("Pause (Space)"));
        QCOMPARE(preview->toolTip(), QString("Preview Selected (Shift+Space)"));
        play->click(); // pauses
        QVERIFY(!play->isChecked());
        QCOMPARE(play->toolTip(), QString("Play (Space)"));

        preview->click();
        QVERIFY(preview->isChecked());
        QVERIFY(!play->isChecked());
        QCOMPARE(preview->toolTip(), QString("Pause (Shift+Space)"));
        m_wnd->onPause(true); // a paused preview leaves the play button alone
        QVERIFY(!preview->isChecked());
        QCOMPARE(preview->toolTip(), QString("Preview Selected (Shift+Space)"));
    }

    void shouldCloseTheEditorAndForgetTheSong()
    {
        openSong();
        get<QPushButton>("closeBtn")->click();
        QCOMPARE(mw::mainPage(*m_wnd), 0);
        QVERIFY(m_wnd->currentSong().strPath.isEmpty());
        // With no song, "Start to Create" does nothing: no dialog, nothing written.
        tw::ModalAnswer answers;
        answers.then(tw::ModalAnswer::reject());
        get<QPushButton>("startbtn")->click();
        QCOMPARE(answers.seen.size(), 0);
        QVERIFY(!QDir(ringtoneDir()).exists() || QDir(ringtoneDir()).isEmpty());
    }

    void shouldWriteTheRingtoneUnderTheTypedName()
    {
        openSong();
        selectThirtySeconds();
        tw::ModalAnswer answers;
        QString offered;
        answers.then([&offered](QWidget* modal) {
            offered = modal->findChild<QLineEdit*>("lineEdit")->text();
            mw::typeName("My Tone")(modal);
        });
        get<QPushButton>("startbtn")->click();
        QCOMPARE(answers.seen, QStringList({"CNameDlg"}));
        QCOMPARE(offered, QFileInfo(m_song).completeBaseName());
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        const QString written = ringtoneDir() + "/My Tone.m4r";
        QVERIFY2(QFile::exists(written), qPrintable(written));
        QVERIFY(QFile::exists(programCacheDir() + "/My Tone.m4r"));
        const double seconds =
            tw::ffprobe({"-show_entries", "format=duration", "-of", "csv=p=0", written}).toDouble();
        QVERIFY2(qAbs(seconds - 30.0) < 0.1, qPrintable(QString::number(seconds)));
    }

    void shouldMakeTheTypedNameSafeForAFile()
    {
        openSong();
        selectThirtySeconds();
        tw::ModalAnswer answers;
        answers.then(mw::typeName("../.hidden/\tname"));
        get<QPushButton>("startbtn")->click();
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QCOMPARE(QDir(ringtoneDir()).entryList(QDir::Files), QStringList({"-.hidden-name.m4r"}));
        QVERIFY(!QFile::exists(QFileInfo(ringtoneDir()).path() + "/.hidden"));
    }

    void shouldAskBeforeReplacingARingtone()
    {
        openSong();
        selectThirtySeconds();
        tw::ModalAnswer answers;
        answers.then(mw::typeName("Twice"));
        get<QPushButton>("startbtn")->click();
        const QString written = ringtoneDir() + "/Twice.m4r";
        QVERIFY(QFile::exists(written));
        const QDateTime first = QFileInfo(written).lastModified();

        answers.then(mw::typeName("Twice"));
        answers.then(tw::ModalAnswer::press(QMessageBox::No));
        answers.then(tw::ModalAnswer::reject()); // the name again: given up
        get<QPushButton>("startbtn")->click();
        QCOMPARE(answers.seen.mid(1), QStringList({"CNameDlg", "QMessageBox", "CNameDlg"}));
        QCOMPARE(QFileInfo(written).lastModified(), first);
        QCOMPARE(mw::mainPage(*m_wnd), 1);

        // Shorter this time, so the replacement shows in its length.
        editor()->setEndTime(at(30000));
        answers.then(mw::typeName("Twice"));
        answers.then(tw::ModalAnswer::press(QMessageBox::Yes));
        get<QPushButton>("startbtn")->click();
        const double seconds =
            tw::ffprobe({"-show_entries", "format=duration", "-of", "csv=p=0", written}).toDouble();
        QVERIFY2(qAbs(seconds - 20.0) < 0.1, qPrintable(QString::number(seconds)));
    }

    void shouldAskForTheNameAgainWhenNotReplacing()
    {
        openSong();
        selectThirtySeconds();
        tw::ModalAnswer answers;
        answers.then(mw::typeName("Taken"));
        get<QPushButton>("startbtn")->click();
        const QString taken = ringtoneDir() + "/Taken.m4r";
        QVERIFY(QFile::exists(taken));
        const QByteArray before = tw::fileChecksum(taken);

        editor()->setEndTime(at(30000));
        QString offered;
        QString selected;
        answers.then(mw::typeName("Taken"));
        answers.then(tw::ModalAnswer::press(QMessageBox::No));
        answers.then([&](QWidget* modal) {
            auto* edit = modal->findChild<QLineEdit*>("lineEdit");
            offered = edit->text();
            selected = edit->selectedText();
            QTest::keyClicks(edit, "Free"); // typing replaces the selection
            modal->findChild<QPushButton*>("okBtn")->click();
        });
        get<QPushButton>("startbtn")->click();
        QCOMPARE(answers.seen.mid(1), QStringList({"CNameDlg", "QMessageBox", "CNameDlg"}));
        QCOMPARE(offered, QString("Taken"));
        QCOMPARE(selected, QString("Taken"));
        QVERIFY(QFile::exists(ringtoneDir() + "/Free.m4r"));
        QCOMPARE(tw::fileChecksum(taken), before);
        QCOMPARE(mw::mainPage(*m_wnd), 1);
    }

    void shouldMakeTheDefaultFortySecondsWithoutAWarning()
    {
        openSong(); // the first 40 s are selected
        tw::ModalAnswer answers;
        answers.then(mw::typeName("First One"));
        get<QPushButton>("startbtn")->click();
        QCOMPARE(answers.seen, QStringList({"CNameDlg"}));
        QVERIFY(QFile::exists(ringtoneDir() + "/First One.m4r"));
    }

    void shouldWarnOnlyOfASelectionLongerThanTheKindsLimit_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<qlonglong>("lengthMs");
        QTest::addColumn<bool>("warns");
        QTest::newRow("ringtone 30.0 s") << "iphone" << 30000LL << false;
        QTest::newRow("ringtone 40.0 s") << "iphone" << 40000LL << false;
        QTest::newRow("ringtone 40.5 s") << "iphone" << 40500LL << true;
        QTest::newRow("alert 30.0 s") << "alert" << 30000LL << false;
        QTest::newRow("alert 30.5 s") << "alert" << 30500LL << true;
        QTest::newRow("ogg 40.0 s") << "ogg" << 40000LL << false;
        QTest::newRow("ogg 40.5 s") << "ogg" << 40500LL << true;
    }

    void shouldWarnOnlyOfASelectionLongerThanTheKindsLimit()
    {
        QFETCH(QString, kind);
        QFETCH(qlonglong, lengthMs);
        QFETCH(bool, warns);
        openSong();
        auto* combo = get<QComboBox>("ringtoneKindCombo");
        combo->setCurrentIndex(combo->findData(kind));
        editor()->model().setSelection(10000, 10000 + lengthMs);
        tw::ModalAnswer answers;
        QString warning;
        answers.then([&warning](QWidget* modal) {
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                warning = box->text();
                tw::ModalAnswer::press(QMessageBox::No)(modal);
            } else {
                tw::ModalAnswer::reject()(modal); // the name dialog: not this time
            }
        });
        get<QPushButton>("startbtn")->click();
        QCOMPARE(answers.seen, QStringList({warns ? "QMessageBox" : "CNameDlg"}));
        if (warns) {
            QVERIFY2(warning.contains(QString::number(lengthMs / 1000.0, 'f', 1) + " seconds"),
                     qPrintable(warning));
            QVERIFY2(warning.contains(kind == "alert" ? "30 seconds" : "40 seconds"),
                     qPrintable(warning));
        }
        // The user may go on past the warning.
        if (warns) {
            answers.then(tw::ModalAnswer::press(QMessageBox::Yes));
            answers.then(mw::typeName("Long One"));
            get<QPushButton>("startbtn")->click();
            const QString ext = kind == "ogg" ? ".ogg" : ".m4r";
            QVERIFY(QFile::exists(ringtoneDir() + "/Long One" + ext));
        }
    }

    void shouldMakeEachKindAndSayWhereItWent_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QString>("codec");
        QTest::addColumn<QString>("container");
        QTest::addColumn<int>("frame"); // samples in one of the codec's frames
        const QString mp4 = "mov,mp4,m4a,3gp,3g2,mj2";
        QTest::newRow("iPhone ringtone") << "iphone"
                                         << ".m4r"
                                         << "aac" << mp4 << 1024;
        QTest::newRow("iPhone alert tone") << "alert"
                                           << ".m4r"
                                           << "aac" << mp4 << 1024;
        QTest::newRow("Android Ogg") << "ogg"
                                     << ".ogg"
                                     << "vorbis"
                                     << "ogg" << 2048;
        QTest::newRow("Android MP3") << "mp3"
                                     << ".mp3"
                                     << "mp3"
                                     << "mp3" << 1152;
        QTest::newRow("plain AAC") << "m4a"
                                   << ".m4a"
                                   << "aac" << mp4 << 1024;
    }

    void shouldMakeEachKindAndSayWhereItWent()
    {
        QFETCH(QString, kind);
        QFETCH(QString, extension);
        QFETCH(QString, codec);
        QFETCH(QString, container);
        QFETCH(int, frame);
        openSong();
        get<QCheckBox>("fadeInCheckBox")->setChecked(true);
        get<QSpinBox>("fadeInSpinBox")->setValue(3);
        auto* combo = get<QComboBox>("ringtoneKindCombo");
        const auto make = [&](const QString& chosen, const QString& name) {
            editor()->model().setSelection(10000, 30000);
            combo->setCurrentIndex(combo->findData(chosen));
            tw::ModalAnswer answers;
            answers.then(mw::typeName(name));
            get<QPushButton>("startbtn")->click();
            QCOMPARE(answers.seen, QStringList({"CNameDlg"}));
        };
        make(kind, "Bell/Tone");
        const QString made = ringtoneDir() + "/Bell-Tone" + extension;
        QVERIFY2(QFile::exists(made), qPrintable(made));
        const auto probe = [&made](const char* entries) {
            return tw::ffprobe({"-show_entries", entries, "-of", "default=nw=1:nk=1", made})
                .trimmed();
        };
        QCOMPARE(probe("stream=codec_name"), codec);
        QCOMPARE(probe("format=format_name"), container);
        const QString tags =
            tw::ffprobe({"-show_entries", "format_tags=title,artist:stream_tags=title,artist",
                         "-of", "default=nw=1", made});
        QVERIFY2(tags.contains("title=Bell/Tone"), qPrintable(tags));   // the name as typed
        QVERIFY2(tags.contains("artist=Tonewright"), qPrintable(tags)); // the song's
        // The library read the title with TagLib: the Ringtones playlist shows it.
        const int ringtones = fx::findPlaylist(ITA_COLLECTION_LIBRARY, "Ringtones");
        QVERIFY2(fx::titlesOf(ITA_COLLECTION_LIBRARY, ringtones).contains("Bell/Tone"),
                 qPrintable(fx::titlesOf(ITA_COLLECTION_LIBRARY, ringtones).join(", ")));
        // Decoded back: the span to within one frame, the fade-in at its start.
        const QByteArray pcm = twcli::decodePcm(made);
        const double ms = pcm.size() / 4 * 1000.0 / 44100;
        QVERIFY2(qAbs(ms - 20000.0) <= frame * 1000.0 / 44100, qPrintable(QString::number(ms)));
        const auto rms = [&pcm](int fromMs, int toMs) { return twcli::rms(pcm, fromMs, toMs); };
        QVERIFY2(rms(0, 500) * 4 < rms(5000, 6000),
                 qPrintable(QString("%1 %2").arg(rms(0, 500)).arg(rms(5000, 6000))));
        // The notice says what was made and where, without a modal box.
        auto* notice = get<QWidget>("ringtoneNotice");
        QVERIFY(notice->isVisible());
        QCOMPARE(get<QLabel>("noticeLabel")->text(),
                 QString("Bell-Tone%1 added to Ringtones").arg(extension));
        // Remembered for the next window.
        QCOMPARE(QSettings().value("Ringtone/Kind").toString(), kind);

        // As loud as the .m4r of the same span and fades, within 1 LU.
        make("iphone", "Reference");
        const double lufs = twcli::integratedLoudness(made);
        const double reference = twcli::integratedLoudness(ringtoneDir() + "/Reference.m4r");
        QVERIFY2(lufs > -70.0 && lufs < 0.0, qPrintable(QString::number(lufs)));
        QVERIFY2(qAbs(lufs - reference) <= 1.0,
                 qPrintable(QString("%1 against %2 LUFS").arg(lufs).arg(reference)));
    }

    void shouldOfferTheFolderAndPlayInTheNoticeAndHideIt()
    {
        openSong();
        editor()->model().setSelection(0, 10000);
        tw::ModalAnswer answers;
        answers.then(mw::typeName("Chime"));
        get<QPushButton>("startbtn")->click();
        auto* notice = get<QWidget>("ringtoneNotice");
        QVERIFY(notice->isVisible());
        tw::UrlCatcher files("file");
        get<QPushButton>("noticeFolderBtn")->click();
        get<QPushButton>("noticePlayBtn")->click();
        QCOMPARE(files.urls.size(), 2);
        QCOMPARE(files.urls.at(0), QUrl::fromLocalFile(ringtoneDir()));
        QCOMPARE(files.urls.at(1), QUrl::fromLocalFile(ringtoneDir() + "/Chime.m4r"));
        // It goes away by itself.
        auto* timer = notice->findChild<QTimer*>();
        QVERIFY(timer && timer->isActive());
        QCOMPARE(timer->interval(), 10000);
        QTRY_VERIFY_WITH_TIMEOUT(!notice->isVisible(), 15000);
    }

    void shouldSayWhenTheLibraryDidNotTakeIt()
    {
        openSong();
        editor()->model().setSelection(0, 10000);
        // A file where the ringtone folder should be: the library cannot copy there.
        QDir().mkpath(QFileInfo(ringtoneDir()).absolutePath());
        QFile blocker(ringtoneDir());
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        tw::ModalAnswer answers;
        answers.then(mw::typeName("Refused"));
        get<QPushButton>("startbtn")->click();
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QCOMPARE(get<QLabel>("noticeLabel")->text(),
                 QString("Refused.m4r was made, but the library did not take it"));
        tw::UrlCatcher files("file");
        get<QPushButton>("noticeFolderBtn")->click();
        QCOMPARE(files.urls, QList<QUrl>({QUrl::fromLocalFile(programCacheDir())}));
        QVERIFY(QFile::exists(programCacheDir() + "/Refused.m4r"));
        QVERIFY(blocker.remove());
    }

    void shouldWriteNothingWhenTheNameIsCancelled()
    {
        openSong();
        selectThirtySeconds();
        tw::ModalAnswer answers;
        answers.then(tw::ModalAnswer::click("cancelBtn"));
        get<QPushButton>("startbtn")->click();
        QCOMPARE(answers.seen, QStringList({"CNameDlg"}));
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QVERIFY(!QDir(ringtoneDir()).exists() || QDir(ringtoneDir()).isEmpty());
        QVERIFY(QDir(programCacheDir()).entryList(QStringList() << "*.m4r").isEmpty());
    }

    void shouldOfferANewImportAfterAFailedExport()
    {
        openSong();
        selectThirtySeconds();
        // A folder where the ringtone file would go: writing it fails.
        QVERIFY(QDir().mkpath(programCacheDir() + "/Blocked.m4r"));
        tw::ModalAnswer answers;
        answers.then(mw::typeName("Blocked"));
        answers.then(tw::ModalAnswer::click("okBtn")); // try again: imports the song again
        get<QPushButton>("startbtn")->click();
        QVERIFY(QDir(programCacheDir()).rmdir("Blocked.m4r"));
        QCOMPARE(answers.seen, QStringList({"CNameDlg", "CTryAgainDlg"}));
        QCOMPARE(mw::mainPage(*m_wnd), 1);
        QCOMPARE(m_wnd->currentSong().strPath, m_song);
        QVERIFY(!QFile::exists(ringtoneDir() + "/Blocked.m4r"));
    }

    void shouldShareTheSongsNameWithTheStorePage()
    {
        openSong();
        tw::UrlCatcher https("https");
        get<QToolButton>("twitter")->click();
        QCOMPARE(https.urls.size(), 1);
        const QUrl url = https.urls.first();
        QCOMPARE(url.path(), QString("/home"));
        const QString status = QUrlQuery(url).queryItemValue("status", QUrl::FullyDecoded);
        QCOMPARE(status, QString("I am creating a ringtone %1 with Tonewright. "
                                 "https://www.vandrel.example/store/tonewright/")
                             .arg(QFileInfo(m_song).completeBaseName()));
        get<QToolButton>("facebook")->click();
        QCOMPARE(https.urls.size(), 2);
        QCOMPARE(https.urls.last().host(), QString("www.facebook.com"));
    }
};

TW_TEST_MAIN(TestMainWndControls)
#include "tst_mainwndcontrols.moc"
