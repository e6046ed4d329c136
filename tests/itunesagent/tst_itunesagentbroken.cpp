// The library agent given a library file it cannot use (not well-formed,
// values of the wrong type, not a property list at all): it logs why and
// serves the folder library. And one it can use although it is unusual.

#include "tests/itunesagent/agentfixtures.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class TestItunesAgentBroken : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }
    void init() { fx::captureAgentLog(); }
    void cleanupTestCase();

    void shouldFallBackToFoldersWhenTheFileCannotBeUsed_data();
    void shouldFallBackToFoldersWhenTheFileCannotBeUsed();
    void shouldIgnoreUnusedKeysOfAnyType();

private:
    QString writeLibrary(const QString& name, const QByteArray& xml);

    QTemporaryDir m_dir;
};

QString TestItunesAgentBroken::writeLibrary(const QString& name, const QByteArray& xml)
{
    const QString path = m_dir.filePath(name);
    if (!fx::writeFile(path, xml))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void TestItunesAgentBroken::cleanupTestCase()
{
    ItunesAgentSetLogger(nullptr, nullptr);
    fx::useFolderLibrary();
}

void TestItunesAgentBroken::shouldFallBackToFoldersWhenTheFileCannotBeUsed_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("why");
    const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n";
    const QByteArray tracksHead = head + "<dict><key>Tracks</key><dict><key>1</key><dict>";
    const QByteArray tracksTail = "</dict></dict></dict></plist>\n";
    const QByteArray good = fx::libraryXml(QString(), {}, {});

    QTest::newRow("truncated") << good.left(good.size() / 2) << "end of file";
    QTest::newRow("mismatched tags")
        << head + "<dict><key>Tracks</key><dict></array></dict></plist>"
        << "</array>";
    QTest::newRow("undefined entity")
        << tracksHead + "<key>Name</key><string>a &bogus; b</string>" + tracksTail
        << "undefined entity &bogus;";
    QTest::newRow("bad character reference")
        << tracksHead + "<key>Name</key><string>&#xD800;</string>" + tracksTail
        << "invalid character reference";
    QTest::newRow("text between values")
        << head + "<dict>hello<key>Tracks</key><dict/></dict></plist>"
        << "unexpected text";
    QTest::newRow("element inside a string")
        << tracksHead + "<key>Name</key><string>a<b/></string>" + tracksTail
        << "element <b> inside <string>";
    QTest::newRow("binary property list") << QByteArray("bplist00\xd1\x01\x02", 11) << "binary";
    QTest::newRow("empty file") << QByteArray() << "empty document";
    QTest::newRow("root is not plist") << QByteArray("<html><body/></html>") << "<html>";
    QTest::newRow("unterminated comment") << head + "<!-- never closed"
                                          << "unterminated comment";
    QTest::newRow("key without value") << head + "<dict><key>Tracks</key></dict></plist>"
                                       << "without a value";
    QTest::newRow("two root values")
        << head + "<dict><key>Tracks</key><dict/></dict><dict/></plist>"
        << "<plist> not closed";
    QTest::newRow("content after the end") << good + "<extra/>"
                                           << "content after </plist>";
    QTest::newRow("no Tracks") << head + "<dict/></plist>"
                               << "no \"Tracks\"";
    QTest::newRow("Tracks is an array") << head + "<dict><key>Tracks</key><array/></dict></plist>"
                                        << "\"Tracks\" is <array>, expected <dict>";
    QTest::newRow("Playlists is a dict")
        << head + "<dict><key>Tracks</key><dict/><key>Playlists</key><dict/></dict></plist>"
        << "\"Playlists\" is <dict>";
    QTest::newRow("track is a string")
        << head + "<dict><key>Tracks</key><dict><key>1</key><string>x</string></dict></dict>"
                  "</plist>"
        << "track 1 is <string>";
    QTest::newRow("Track ID is a string")
        << tracksHead + "<key>Track ID</key><string>1</string>" + tracksTail
        << "\"Track ID\" is <string>, expected <integer>";
    QTest::newRow("Track ID is no number")
        << tracksHead + "<key>Track ID</key><integer>12a</integer>" + tracksTail
        << "<integer> holding \"12a\"";
    QTest::newRow("Name is an integer")
        << tracksHead + "<key>Name</key><integer>5</integer>" + tracksTail
        << "\"Name\" is <integer>, expected <string>";
    QTest::newRow("Location is a date")
        << tracksHead + "<key>Location</key><date>2009-08-23T18:53:07Z</date>" + tracksTail
        << "\"Location\" is <date>";
    QTest::newRow("Has Video is a string")
        << tracksHead + "<key>Has Video</key><string>yes</string>" + tracksTail
        << "expected <true/> or <false/>";
    QTest::newRow("Visible is a string")
        << head + "<dict><key>Tracks</key><dict/><key>Playlists</key><array><dict>"
                  "<key>Visible</key><string>no</string></dict></array></dict></plist>"
        << "\"Visible\" is <string>";
    QTest::newRow("Distinguished Kind is a string")
        << head + "<dict><key>Tracks</key><dict/><key>Playlists</key><array><dict>"
                  "<key>Distinguished Kind</key><string>4</string></dict></array></dict></plist>"
        << "\"Distinguished Kind\" is <string>";
    QTest::newRow("Playlist Items is a dict")
        << head + "<dict><key>Tracks</key><dict/><key>Playlists</key><array><dict>"
                  "<key>Playlist Items</key><dict/></dict></array></dict></plist>"
        << "\"Playlist Items\" is <dict>";
    QTest::newRow("playlist item Track ID is a string")
        << head + "<dict><key>Tracks</key><dict/><key>Playlists</key><array><dict>"
                  "<key>Playlist Items</key><array><dict><key>Track ID</key><string>1</string>"
                  "</dict></array></dict></array></dict></plist>"
        << "\"Track ID\" is <string>";
    QByteArray deep = head + "<dict><key>Tracks</key><dict/><key>Deep</key>";
    deep += QByteArray("<array>").repeated(100) + QByteArray("</array>").repeated(100);
    deep += "</dict></plist>";
    QTest::newRow("nested too deeply") << deep << "nested too deeply";
}

void TestItunesAgentBroken::shouldFallBackToFoldersWhenTheFileCannotBeUsed()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, why);
    const QString path = writeLibrary(QString("broken-%1.xml").arg(QTest::currentDataTag()), xml);
    fx::useXmlLibrary(path);
    QCOMPARE(ItunesAgentLoad(), int(ITA_BACKEND_FOLDER));
    QVERIFY2(fx::loggedLine("could not be read"), qPrintable(fx::agentLines().join('\n')));
    QVERIFY2(fx::loggedLine(why), qPrintable(fx::agentLines().join('\n')));
    // The folder library answers as usual.
    QCOMPARE(fx::playlistNames(ITA_COLLECTION_LIBRARY),
             QStringList({"Music", "Movies", "Ringtones"}));
}

void TestItunesAgentBroken::shouldIgnoreUnusedKeysOfAnyType()
{
    const QByteArray xml =
        "<?xml version=\"1.0\"?><!-- written by hand -->\n"
        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"x.dtd\" [ <!ENTITY e \"x\"> ]>\n"
        "<plist version=\"1.0\"><dict>"
        "<key>Features</key><string>five</string>"
        "<key>Tracks</key><dict><key>7</key><dict>"
        "<key>Comments</key><integer>12</integer>"
        "<key>Rating</key><array><real>1.5</real><data>AA==</data></array>"
        "<key>Name</key><string><![CDATA[a <cdata> title]]></string>"
        "<key>Artist</key><string>caf&#xE9; &#233;&amp;&lt;&gt;&quot;&apos;</string>"
        "<key>Disabled</key><true></true>"
        "</dict></dict>"
        "<key>Playlists</key><array><dict><key>Name</key><string>Only</string>"
        "<key>Playlist Items</key><array><dict><key>Track ID</key><integer>7</integer>"
        "<key>Extra</key><dict/></dict></array></dict></array>"
        "</dict></plist>\n<!-- the end -->\n";
    fx::useXmlLibrary(writeLibrary("lenient.xml", xml));
    QCOMPARE(ItunesAgentLoad(), int(ITA_BACKEND_XML));
    const QList<fx::Song> songs = fx::songsOf(ITA_COLLECTION_PLAYLISTS, 0);
    QCOMPARE(songs.size(), 1);
    QCOMPARE(songs[0].title, QString("a <cdata> title"));
    QCOMPARE(songs[0].artist, QString::fromUtf8("café é&<>\"'"));
}

TW_TEST_MAIN(TestItunesAgentBroken)
#include "tst_itunesagentbroken.moc"
