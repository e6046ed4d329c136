// The welcome pane: its parts and their places, drops (only the first file,
// only files with sound, no text snippets), the hidden store strip, and the
// hint following the language.

#include "mediafixtures.h"
#include "testenv.h"
#include "ui/hellownd.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QUrl>

namespace {

// Sends a drag-enter and, when it was accepted, a drop of `data`; returns
// whether the drop was accepted.
bool dropOn(QWidget* target, QMimeData* data, bool* entered = nullptr)
{
    QDragEnterEvent enter(QPoint(100, 100), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    if (entered)
        *entered = enter.isAccepted();
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(QPointF(100, 100), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
    return drop.isAccepted();
}

} // namespace

class TestHelloWnd : public QObject
{
    Q_OBJECT

private slots:
    void shouldBuildAnimationHintAndAHiddenStrip()
    {
        CHelloWnd hello;
        hello.resize(677, 420);
        hello.show();
        QVERIFY(QTest::qWaitForWindowExposed(&hello));
        QVERIFY(hello.acceptDrops());
        auto* animation = hello.findChild<QLabel*>("helloAnimation");
        QVERIFY(animation);
        QCOMPARE(animation->alignment(), Qt::AlignCenter);
        // The animation plays, drawn at the screen's density.
        QTRY_VERIFY(!animation->pixmap().isNull());
        QCOMPARE(animation->pixmap().devicePixelRatio(), hello.devicePixelRatioF());
        QCOMPARE(animation->pixmap().deviceIndependentSize().toSize(), QSize(240, 160));
        auto* hint = hello.findChild<QLabel*>("helloHint");
        QVERIFY(hint);
        QCOMPARE(hint->geometry(), QRect(260, 225, 400, 50));
        QVERIFY(hint->text().contains("Please select file in the left list,<br />Or drag a song "
                                      "or movie file into the window."));
        QVERIFY(hint->text().contains("#626567"));
        QVERIFY(hint->text().contains("Verdana"));
        auto* strip = hello.findChild<QWidget*>("advertisement");
        auto* learn = hello.findChild<QPushButton*>("advertisementBtn");
        QVERIFY(strip && learn);
        QVERIFY(!strip->isVisible());
        QVERIFY(!learn->isVisible());
        QCOMPARE(learn->text(), QString("Learn More"));
        QCOMPARE(strip->geometry(), QRect(0, 420 - 66, 677, 66));
        QCOMPARE(learn->pos(), QPoint(677 - 150, 420 - 40));
        hello.resize(800, 500);
        QCOMPARE(strip->geometry(), QRect(0, 500 - 66, 800, 66));
        QCOMPARE(learn->pos(), QPoint(800 - 150, 500 - 40));
        QCOMPARE(hint->geometry(), QRect(260, 225, 400, 50)); // fixed, whatever the size
    }

    void shouldOpenOnlyTheFirstDroppedFile()
    {
        CHelloWnd hello;
        QSignalSpy opened(&hello, &CHelloWnd::openWave);
        QMimeData data;
        data.setUrls(
            {QUrl::fromLocalFile(tw::mp3Fixture(3)), QUrl::fromLocalFile(tw::wavFixture(3))});
        QVERIFY(dropOn(&hello, &data));
        QCOMPARE(opened.count(), 1);
        QCOMPARE(opened.at(0).at(0).toString(), tw::mp3Fixture(3));
    }

    void shouldIgnoreFilesWithoutSoundAndRefuseTextSnippets()
    {
        CHelloWnd hello;
        QSignalSpy opened(&hello, &CHelloWnd::openWave);
        QMimeData noSound;
        noSound.setUrls({QUrl::fromLocalFile(tw::textFixture())});
        bool entered = false;
        QVERIFY(!dropOn(&hello, &noSound, &entered));
        QVERIFY(entered); // a file list is welcome at first
        QMimeData silentVideo;
        silentVideo.setUrls({QUrl::fromLocalFile(tw::silentVideoFixture(2))});
        QVERIFY(!dropOn(&hello, &silentVideo));
        QMimeData remote;
        remote.setUrls({QUrl("https://example.com/song.mp3")});
        QVERIFY(!dropOn(&hello, &remote));
        QMimeData text;
        text.setText("just some words");
        QVERIFY(!dropOn(&hello, &text, &entered));
        QVERIFY(!entered); // refused at the door
        QMimeData empty;
        empty.setUrls({});
        QCOMPARE(opened.count(), 0);
    }

    void shouldRetranslateOnALanguageChange()
    {
        CHelloWnd hello;
        auto* learn = hello.findChild<QPushButton*>("advertisementBtn");
        learn->setText("something else");
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&hello, &change);
        QCOMPARE(learn->text(), QString("Learn More"));
    }
};

TW_TEST_MAIN(TestHelloWnd)
#include "tst_hellownd.moc"
