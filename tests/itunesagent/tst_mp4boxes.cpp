// How the folder library tells an MPEG-4 video from MPEG-4 audio: by walking
// the file's boxes header by header ("moov", "trak", "mdia", "hdlr", "stsd"),
// never reading a large "moov" whole. Real files from ffmpeg, and files
// rebuilt from them: a "moov" of over 100 MB (sparse on disk), a 64-bit box
// size, and boxes whose sizes lie.

#include "platform/itunesagent/mediafile.h"
#include "tests/itunesagent/agentfixtures.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct TopBox
{
    QByteArray type;
    QByteArray bytes; // the whole box, header included
};

quint32 be32(const QByteArray& b, int at)
{
    return (quint32(quint8(b[at])) << 24) | (quint32(quint8(b[at + 1])) << 16) |
           (quint32(quint8(b[at + 2])) << 8) | quint32(quint8(b[at + 3]));
}

QByteArray header32(quint32 size, const char* type)
{
    QByteArray h;
    for (int shift = 24; shift >= 0; shift -= 8)
        h.append(char((size >> shift) & 0xFF));
    return h + QByteArray(type, 4);
}

QByteArray header64(quint64 size, const char* type)
{
    QByteArray h = header32(1, type);
    for (int shift = 56; shift >= 0; shift -= 8)
        h.append(char((size >> shift) & 0xFF));
    return h;
}

// The top-level boxes of a file with 32-bit sizes (what ffmpeg writes here).
QList<TopBox> topBoxes(const QByteArray& file)
{
    QList<TopBox> boxes;
    int at = 0;
    while (at + 8 <= file.size()) {
        const quint32 size = be32(file, at);
        if (size < 8 || at + qint64(size) > file.size())
            break;
        boxes.append({file.mid(at + 4, 4), file.mid(at, int(size))});
        at += int(size);
    }
    return boxes;
}

QByteArray boxOf(const QList<TopBox>& boxes, const char* type)
{
    for (const TopBox& b : boxes)
        if (b.type == type)
            return b.bytes;
    return QByteArray();
}

bool hasVideo(const QString& path)
{
    return ita::mp4HasVideoTrack(QFile::encodeName(path).toStdString());
}

} // namespace

class TestMp4Boxes : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QByteArray m_ftyp;
    QByteArray m_moovPayload; // of a real H.264 + AAC file

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        const QString clip = m_dir.filePath("clip.mp4");
        QVERIFY(fx::makeVideo(clip));
        const QList<TopBox> boxes = topBoxes(fx::readFile(clip));
        m_ftyp = boxOf(boxes, "ftyp");
        const QByteArray moov = boxOf(boxes, "moov");
        QVERIFY(!m_ftyp.isEmpty() && moov.size() > 8);
        m_moovPayload = moov.mid(8);
    }

    void shouldTellVideoFromSound()
    {
        const QString clip = m_dir.filePath("clip.mp4");
        QVERIFY(hasVideo(clip));
        const QString sound = m_dir.filePath("sound.m4a");
        QVERIFY(fx::makeAudio(sound, {"-c:a", "aac"}));
        QVERIFY(!hasVideo(sound));
        QVERIFY(!hasVideo(m_dir.filePath("missing.mp4")));
        const QString text = m_dir.filePath("text.mp4");
        QVERIFY(fx::writeFile(text, "not an MPEG-4 file at all"));
        QVERIFY(!hasVideo(text));
    }

    void shouldFindTheTrackBehindAHugeBoxWithoutReadingIt()
    {
        // moov = [free: 100 MB] + the real tracks. The free box is a hole in a
        // sparse file: it costs no disk, and reading it whole would cost
        // 100 MB of memory.
        const qint64 hole = 100LL << 20;
        const QString path = m_dir.filePath("huge moov.mp4");
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(m_ftyp);
        f.write(header32(quint32(8 + 8 + hole + m_moovPayload.size()), "moov"));
        f.write(header32(quint32(8 + hole), "free"));
        QVERIFY(f.seek(f.pos() + hole));
        f.write(m_moovPayload);
        f.close();
        QVERIFY(QFileInfo(path).size() > hole);
        QVERIFY(hasVideo(path));
    }

    void shouldReadSixtyFourBitBoxSizes()
    {
        const QString path = m_dir.filePath("large size.mp4");
        QVERIFY(fx::writeFile(path, m_ftyp + header64(16 + m_moovPayload.size(), "moov") +
                                        m_moovPayload));
        QVERIFY(hasVideo(path));
    }

    void shouldGiveUpOnSizesThatLie_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<bool>("video");
        const QByteArray moov = header32(quint32(8 + m_moovPayload.size()), "moov") + m_moovPayload;
        QTest::newRow("moov past the end of the file")
            << m_ftyp + header32(quint32(moov.size() + 1000), "moov") + m_moovPayload << false;
        QTest::newRow("a box smaller than its header")
            << m_ftyp + header32(4, "free") + moov << false;
        QTest::newRow("a 64-bit size past the end")
            << m_ftyp + header64(quint64(1) << 40, "moov") + m_moovPayload << false;
        QTest::newRow("a cut header") << m_ftyp + QByteArray("\0\0\0", 3) << false;
        // A zero size runs to the end of the file.
        QTest::newRow("moov of size 0") << m_ftyp + header32(0, "moov") + m_moovPayload << true;
        // A trak that claims more than its moov holds ends the walk there.
        QByteArray broken = m_moovPayload;
        const int trak = broken.indexOf("trak") - 4;
        QVERIFY(trak >= 0);
        broken.replace(trak, 4, header32(quint32(broken.size() * 4), "trak").left(4));
        QTest::newRow("a trak past its moov")
            << m_ftyp + header32(quint32(8 + broken.size()), "moov") + broken << false;
    }

    void shouldGiveUpOnSizesThatLie()
    {
        QFETCH(QByteArray, file);
        QFETCH(bool, video);
        const QString path = m_dir.filePath(QString("lie %1.mp4").arg(QTest::currentDataTag()));
        QVERIFY(fx::writeFile(path, file));
        QCOMPARE(hasVideo(path), video);
    }
};

TW_TEST_MAIN(TestMp4Boxes)
#include "tst_mp4boxes.moc"
