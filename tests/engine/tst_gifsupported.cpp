// CGifSupported with the toolkit's image plugins in place, and the
// animations compiled into the program.

#include "testenv.h"

#include "engine/gifsupported.h"

#include <QImageReader>
#include <QMovie>

class TestGifSupported : public QObject
{
    Q_OBJECT

private slots:
    void shouldFindGifAmongTheReadableFormats()
    {
        QVERIFY(QImageReader::supportedImageFormats().contains("gif"));
        QVERIFY(CGifSupported::getSupportedGIF());
    }

    void shouldCompileInTheAnimations_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<bool>("animated");
        QTest::addColumn<bool>("transparent");
        QTest::addColumn<QSize>("size");
        // The spinner lies over whatever the progress pane shows; the welcome
        // pictures are drawn on the pane's own ground, at twice the 240x160
        // they take on screen.
        QTest::newRow("progress") << ":/animations/progress" << QByteArray("gif") << true << true
                                  << QSize(96, 96);
        QTest::newRow("hello") << ":/animations/hello" << QByteArray("gif") << true << false
                               << QSize(480, 320);
        QTest::newRow("helloPNG") << ":/animations/helloPNG" << QByteArray("png") << false << false
                                  << QSize(480, 320);
    }

    void shouldCompileInTheAnimations()
    {
        QFETCH(QString, path);
        QFETCH(QByteArray, format);
        QFETCH(bool, animated);
        QFETCH(bool, transparent);
        QFETCH(QSize, size);
        QImageReader reader(path);
        QCOMPARE(reader.format(), format);
        const QImage first = reader.read();
        QVERIFY2(!first.isNull(), qPrintable(reader.errorString()));
        QCOMPARE(first.size(), size);
        const QColor corner = first.pixelColor(0, 0);
        if (transparent) {
            QCOMPARE(corner.alpha(), 0);
        } else {
            QCOMPARE(corner.alpha(), 255);
            QCOMPARE(corner.name(), QString("#f4f6f9")); // the welcome pane's ground
        }

        QMovie movie(path);
        QVERIFY(movie.isValid());
        QCOMPARE(movie.frameCount() > 1, animated);
        if (animated)
            QCOMPARE(movie.loopCount(), -1); // loops for as long as it is shown
    }
};

TW_TEST_MAIN(TestGifSupported)
#include "tst_gifsupported.moc"
