// The compiled-in pictures the program asks for by path are all there, each
// a picture that draws (the library icons, the welcome and progress
// animations, the message pane's pictures, the preview pane's default album
// picture, the editor's play-cursor grip), and the termination handler
// start-up keeps offers the report the user asks for.

#include "app/startup.h"
#include "crash/crashreportdlg.h"
#include "modalanswer.h"
#include "testenv.h"

#include <QIcon>
#include <QImageReader>
#include <QLabel>
#include <QPixmap>
#include <QTextDocumentFragment>

class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void shouldHoldEveryPictureThePathsName_data()
    {
        QTest::addColumn<QString>("path");
        for (const char* path :
             {":/li/music", ":/li/video", ":/li/tv_show", ":/li/podcasts", ":/li/ringtones",
              ":/li/purchase", ":/li/genius", ":/li/file", ":/li/f_music", ":/li/f_video",
              ":/animations/hello", ":/animations/helloPNG", ":/animations/progress",
              ":/msg/musical", ":/msg/film", ":/player/album", ":/wave/drag"})
            QTest::newRow(path) << QString::fromLatin1(path);
    }
    void shouldHoldEveryPictureThePathsName()
    {
        QFETCH(QString, path);
        QImageReader reader(path);
        const QImage image = reader.read();
        QVERIFY2(!image.isNull(), qPrintable(path + ": " + reader.errorString()));
        QVERIFY(image.width() >= 8 && image.height() >= 8);
        // Drawn at twice the size for a dense screen, it is still a picture.
        const QPixmap twice = QIcon(path).pixmap(image.size(), 2.0);
        QVERIFY(!twice.isNull());
    }

    void shouldOfferTheManualReportFromTheTerminationHandler()
    {
        tw::ModalAnswer answers;
        QString text;
        answers.then([&text](QWidget* modal) {
            if (auto* label = modal->findChild<QLabel*>("crashLabel"))
                text = QTextDocumentFragment::fromHtml(label->text()).toPlainText();
            qobject_cast<QDialog*>(modal)->reject();
        });
        _termHander();
        QCOMPARE(answers.seen, QStringList({"CCrashReportDlg"}));
        QVERIFY2(text.startsWith("If you found any problem with Tonewright."), qPrintable(text));
    }
};

TW_TEST_MAIN(TestResources)
#include "tst_resources.moc"
