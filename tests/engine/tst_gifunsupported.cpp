// Without the GIF reader: CGifSupported says so (and logs it), and the
// progress pane falls back to the still picture.

#include "testenv.h"

#include "engine/gifsupported.h"
#include "engine/progressdlg.h"

#include <QDir>
#include <QImageReader>
#include <QLabel>
#include <QLayout>
#include <QMovie>
#include <QTemporaryDir>

class TestGifUnsupported : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_noPlugins;

private slots:
    void initTestCase()
    {
        // Image format plugins are looked for on first use, which comes
        // after this: none is found in an empty directory.
        QCoreApplication::setLibraryPaths({m_noPlugins.path()});
        QVERIFY(!QImageReader::supportedImageFormats().contains("gif"));
    }

    void shouldSayNoAndLogIt()
    {
        QTest::ignoreMessage(QtDebugMsg, "gif not suported:");
        QVERIFY(!CGifSupported::getSupportedGIF());
    }

    void shouldShowTheStillPictureInTheProgressPane()
    {
        QTest::ignoreMessage(QtDebugMsg, "gif not suported:");
        CProgressDlg dlg;
        QLabel* animation = nullptr;
        for (QLabel* l : dlg.findChildren<QLabel*>())
            if (l->movie())
                animation = l;
        QVERIFY(animation);
        QCOMPARE(animation->movie()->fileName(), QString(":/animations/helloPNG"));
        QVERIFY(animation->movie()->isValid());
        QVERIFY(dlg.layout());
        QVERIFY(dlg.findChild<QLabel*>("percentLabel"));
        QCOMPARE(dlg.start(1.0f, 0.0f, false), 1);
        QCOMPARE(dlg.findChild<QLabel*>("percentLabel")->text(), QString("99%"));
    }
};

TW_TEST_MAIN(TestGifUnsupported)
#include "tst_gifunsupported.moc"
