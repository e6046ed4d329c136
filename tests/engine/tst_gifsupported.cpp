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
        QTest::newRow("progress") << ":/animations/progress" << QByteArray("gif") << true;
        QTest::newRow("hello") << ":/animations/hello" << QByteArray("gif") << true;
        QTest::newRow("helloPNG") << ":/animations/helloPNG" << QByteArray("png") << false;
    }

    void shouldCompileInTheAnimations()
    {
        QFETCH(QString, path);
        QFETCH(QByteArray, format);
        QFETCH(bool, animated);
        QImageReader reader(path);
        QCOMPARE(reader.format(), format);
        const QImage first = reader.read();
        QVERIFY2(!first.isNull(), qPrintable(reader.errorString()));
        QVERIFY(first.hasAlphaChannel()); // drawn on a transparent ground
        QVERIFY(first.width() <= 320 && first.height() <= 240);

        QMovie movie(path);
        QVERIFY(movie.isValid());
        QCOMPARE(movie.frameCount() > 1, animated);
        if (animated)
            QCOMPARE(movie.loopCount(), -1); // loops for as long as it is shown
    }
};

TW_TEST_MAIN(TestGifSupported)
#include "tst_gifsupported.moc"
