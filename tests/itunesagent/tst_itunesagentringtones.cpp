// AppendRingtone with an XML library: into its "Automatically Add to
// iTunes" folder or <Music>/Ringtones, shown at once, replaced by name, the
// source untouched; the ringtones playlist of the library merged with the
// files of the place, or kept hidden; bad ringtones refused with nothing
// written.

#include "tests/itunesagent/agentfixtures.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class TestItunesAgentRingtones : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { fx::captureAgentLog(); }
    void cleanupTestCase();

    void shouldAppendRingtoneIntoTheAutomaticallyAddFolder();
    void shouldAppendRingtoneIntoMusicRingtonesWithoutThatFolder();
    void shouldMergeRingtonePlaceFilesIntoTheLibrarysRingtonesPlaylist();
    void shouldKeepAHiddenRingtonesPlaylistHidden();
    void shouldReportAPlaceThatCannotBeWritten();
    void shouldTakeAndListEveryKindOfRingtone();
    void shouldRefuseBadRingtonesAndWriteNothing_data();
    void shouldRefuseBadRingtonesAndWriteNothing();

private:
    QString writeLibrary(const QString& name, const QByteArray& xml);

    QTemporaryDir m_dir;
    QList<fx::XmlTrack> m_tracks;
};

QString TestItunesAgentRingtones::writeLibrary(const QString& name, const QByteArray& xml)
{
    const QString path = m_dir.filePath(name);
    if (!fx::writeFile(path, xml))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void TestItunesAgentRingtones::initTestCase()
{
    QVERIFY(m_dir.isValid());
    fx::XmlTrack yesterday;
    yesterday.id = 105;
    yesterday.name = "Yesterday";
    yesterday.artist = "The Beatles";
    yesterday.path = m_dir.filePath("iTunes Media/Beatles/Yesterday.mp3");
    fx::XmlTrack something = yesterday;
    something.id = 106;
    something.name = "Something";
    something.path = m_dir.filePath("iTunes Media/Beatles/Something.mp3");
    m_tracks << yesterday << something;
}

void TestItunesAgentRingtones::cleanupTestCase()
{
    ItunesAgentSetLogger(nullptr, nullptr);
    fx::useFolderLibrary();
}

void TestItunesAgentRingtones::shouldAppendRingtoneIntoTheAutomaticallyAddFolder()
{
    const QString mediaFolder = m_dir.filePath("auto/iTunes Media");
    const QString autoAdd = mediaFolder + "/Automatically Add to iTunes";
    QVERIFY(QDir().mkpath(autoAdd));
    fx::useXmlLibrary(writeLibrary("auto.xml", fx::libraryXml(mediaFolder, m_tracks, {})));
    const int ringtones = fx::findPlaylist(ITA_COLLECTION_LIBRARY, "Ringtones");
    QVERIFY(ringtones >= 0);
    QCOMPARE(fx::songsOf(ITA_COLLECTION_LIBRARY, ringtones).size(), 0);
    char dir[512];
    QVERIFY(ItunesAgentGetRingtoneDir(dir, sizeof dir) > 0);
    QCOMPARE(QString::fromUtf8(dir), autoAdd);

    const QString source = m_dir.filePath(QString::fromUtf8("made/Mÿ Tone.m4r"));
    QVERIFY(fx::makeRingtone(source));
    QVERIFY(fx::setTags(source, "My Tone", "Me", "Ringtones"));
    const QByteArray before = fx::sha1(source);

    QCOMPARE(AppendRingtone(QFile::encodeName(source).constData()), int(ITA_OK));
    const QString target = autoAdd + QString::fromUtf8("/Mÿ Tone.m4r");
    QVERIFY(QFileInfo::exists(target));
    QCOMPARE(fx::sha1(target), before);
    QList<fx::Song> songs = fx::songsOf(ITA_COLLECTION_LIBRARY, ringtones);
    QCOMPARE(songs.size(), 1);
    QCOMPARE(songs[0].title, QString("My Tone"));
    QCOMPARE(songs[0].location, target);

    // Same name again, new content: replaced, not added twice.
    QVERIFY(fx::setTags(source, "My Tone 2", "Me", "Ringtones"));
    const QByteArray second = fx::sha1(source);
    QCOMPARE(AppendRingtone(QFile::encodeName(source).constData()), int(ITA_OK));
    songs = fx::songsOf(ITA_COLLECTION_LIBRARY, ringtones);
    QCOMPARE(songs.size(), 1);
    QCOMPARE(songs[0].title, QString("My Tone 2"));
    QCOMPARE(fx::sha1(target), second);
    QCOMPARE(fx::sha1(source), second);
    QCOMPARE(QDir(autoAdd).entryList(QDir::Files | QDir::Hidden).size(), 1);

    // Found by a search like any other track.
    char tone[] = "my tone";
    tagSongInfo query = {};
    query.pszTitle = tone;
    query.nTitleSize = sizeof tone;
    fx::SearchHits hits;
    QCOMPARE(SearchSong(&query, &fx::collectHit, &hits), 1);
}

void TestItunesAgentRingtones::shouldAppendRingtoneIntoMusicRingtonesWithoutThatFolder()
{
    const QString mediaFolder = m_dir.filePath("plain/iTunes Media");
    QVERIFY(QDir().mkpath(mediaFolder));
    fx::useXmlLibrary(writeLibrary("plain.xml", fx::libraryXml(mediaFolder, m_tracks, {})));
    const QString place =
        QStandardPaths::writableLocation(QStandardPaths::MusicLocation) + "/Ringtones";
    QVERIFY(place.startsWith(tw::testHome()));
    char dir[512];
    ItunesAgentGetRingtoneDir(dir, sizeof dir);
    QCOMPARE(QString::fromUtf8(dir), place);

    const QString source = m_dir.filePath("made/Plain.m4r");
    QVERIFY(fx::makeRingtone(source));
    const QByteArray before = fx::sha1(source);
    const QDateTime modified = QFileInfo(source).lastModified();
    QCOMPARE(AppendRingtone(QFile::encodeName(source).constData()), int(ITA_OK));
    QVERIFY(QFileInfo::exists(place + "/Plain.m4r"));
    QCOMPARE(fx::sha1(source), before);
    QCOMPARE(QFileInfo(source).lastModified(), modified);
    const int ringtones = fx::findPlaylist(ITA_COLLECTION_LIBRARY, "Ringtones");
    QVERIFY(fx::titlesOf(ITA_COLLECTION_LIBRARY, ringtones).contains("Plain"));
    QVERIFY(fx::loggedLine("ringtone added: " + place + "/Plain.m4r"));
}

void TestItunesAgentRingtones::shouldTakeAndListEveryKindOfRingtone()
{
    const QString mediaFolder = m_dir.filePath("kinds/iTunes Media");
    const QString autoAdd = mediaFolder + "/Automatically Add to iTunes";
    QVERIFY(QDir().mkpath(autoAdd));
    const QString xml = writeLibrary("kinds.xml", fx::libraryXml(mediaFolder, m_tracks, {}));
    fx::useXmlLibrary(xml);
    const QString made = m_dir.filePath("made kinds");
    QVERIFY(QDir().mkpath(made));
    const QString sine = "sine=frequency=660:duration=0.5";
    QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", sine, "-c:a", "libvorbis", made + "/Ogg Tone.ogg"}));
    QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", sine, "-c:a", "libmp3lame", made + "/Mp3 Tone.mp3"}));
    QVERIFY(tw::ffmpeg({"-f", "lavfi", "-i", sine, "-c:a", "aac", made + "/Aac Tone.m4a"}));
    for (const char* name : {"Ogg Tone.ogg", "Mp3 Tone.mp3", "Aac Tone.m4a"}) {
        QCOMPARE(AppendRingtone(QFile::encodeName(made + "/" + name).constData()), int(ITA_OK));
        QVERIFY(QFileInfo::exists(autoAdd + "/" + name));
    }
    int ringtones = fx::findPlaylist(ITA_COLLECTION_LIBRARY, "Ringtones");
    QStringList titles = fx::titlesOf(ITA_COLLECTION_LIBRARY, ringtones);
    for (const char* title : {"Ogg Tone", "Mp3 Tone", "Aac Tone"})
        QVERIFY2(titles.contains(title), qPrintable(titles.join(", ")));

    // Found again in the place when the library is read anew.
    fx::useXmlLibrary(xml);
    ringtones = fx::findPlaylist(ITA_COLLECTION_LIBRARY, "Ringtones");
    titles = fx::titlesOf(ITA_COLLECTION_LIBRARY, ringtones);
    for (const char* title : {"Ogg Tone", "Mp3 Tone", "Aac Tone"})
        QVERIFY2(titles.contains(title), qPrintable(titles.join(", ")));
}

void TestItunesAgentRingtones::shouldMergeRingtonePlaceFilesIntoTheLibrarysRingtonesPlaylist()
{
    const QString mediaFolder = m_dir.filePath("merge/iTunes Media");
    const QString autoAdd = mediaFolder + "/Automatically Add to iTunes";
    QVERIFY(fx::makeRingtone(autoAdd + "/Beep.m4r"));
    QVERIFY(fx::makeRingtone(autoAdd + "/Listed.m4r"));
    QVERIFY(fx::writeFile(autoAdd + "/notes.txt", "not a ringtone"));
    QList<fx::XmlTrack> tracks = m_tracks;
    fx::XmlTrack listed;
    listed.id = 300;
    listed.name = "Listed Tone";
    listed.path = autoAdd + "/Listed.m4r";
    tracks << listed;
    fx::XmlPlaylist own;
    own.name = "Tones";
    own.kind = 55;
    own.items = {105, 300};
    fx::useXmlLibrary(writeLibrary("merge.xml", fx::libraryXml(mediaFolder, tracks, {own})));
    QCOMPARE(fx::playlistNames(ITA_COLLECTION_LIBRARY), QStringList({"Tones"}));
    // The library's own items first; files already listed are not repeated.
    QCOMPARE(fx::titlesOf(ITA_COLLECTION_LIBRARY, 0),
             QStringList({"Yesterday", "Listed Tone", "Beep"}));
}

void TestItunesAgentRingtones::shouldKeepAHiddenRingtonesPlaylistHidden()
{
    const QString mediaFolder = m_dir.filePath("hidden/iTunes Media");
    const QString autoAdd = mediaFolder + "/Automatically Add to iTunes";
    QVERIFY(QDir().mkpath(autoAdd));
    fx::XmlPlaylist tones;
    tones.name = "Ringtones";
    tones.kind = 55;
    tones.hidden = true;
    fx::useXmlLibrary(writeLibrary("hidden.xml", fx::libraryXml(mediaFolder, m_tracks, {tones})));
    QCOMPARE(GetPlaylistCount(ITA_COLLECTION_LIBRARY), 0);
    QCOMPARE(GetPlaylistCount(ITA_COLLECTION_PLAYLISTS), 0);
    const QString source = m_dir.filePath("made/Hidden.m4r");
    QVERIFY(fx::makeRingtone(source));
    QCOMPARE(AppendRingtone(QFile::encodeName(source).constData()), int(ITA_OK));
    QVERIFY(QFileInfo::exists(autoAdd + "/Hidden.m4r"));
    QCOMPARE(GetPlaylistCount(ITA_COLLECTION_LIBRARY), 0);
}

void TestItunesAgentRingtones::shouldRefuseBadRingtonesAndWriteNothing_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("result");
    QTest::newRow("missing file") << "absent/none.m4r" << QByteArray() << int(ITA_E_NOTFOUND);
    QTest::newRow("a folder") << "folder.m4r/" << QByteArray() << int(ITA_E_NOTFOUND);
    QTest::newRow("not a ringtone kind") << "tone.wav" << QByteArray("RIFF") << int(ITA_E_FORMAT);
    QTest::newRow("garbage .mp3") << "tone.mp3" << QByteArray("ID3") << int(ITA_E_FORMAT);
    QTest::newRow("garbage .ogg") << "tone.ogg" << QByteArray(4096, 'o') << int(ITA_E_FORMAT);
    QTest::newRow("garbage .m4r") << "garbage.m4r" << QByteArray(4096, 'z') << int(ITA_E_FORMAT);
    QTest::newRow("only dots") << "...m4r" << QByteArray("x") << int(ITA_E_FORMAT);
}

void TestItunesAgentRingtones::shouldRefuseBadRingtonesAndWriteNothing()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(int, result);
    const QString place = m_dir.filePath("refuse/iTunes Media/Automatically Add to iTunes");
    QVERIFY(QDir().mkpath(place));
    fx::useXmlLibrary(
        writeLibrary("refuse.xml", fx::libraryXml(m_dir.filePath("refuse/iTunes Media"), {}, {})));
    const QString path = m_dir.filePath("bad/" + file);
    if (file.endsWith('/'))
        QVERIFY(QDir().mkpath(path));
    else if (!content.isEmpty())
        QVERIFY(fx::writeFile(path, content));
    QCOMPARE(AppendRingtone(QFile::encodeName(path).constData()), result);
    QCOMPARE(QDir(place).entryList(QDir::Files | QDir::Hidden).size(), 0);
    QCOMPARE(fx::songsOf(ITA_COLLECTION_LIBRARY, 0).size(), 0);
    if (!content.isEmpty())
        QCOMPARE(fx::readFile(path), content);
    QCOMPARE(AppendRingtone(nullptr), int(ITA_E_ARGUMENT));
    QCOMPARE(AppendRingtone(""), int(ITA_E_ARGUMENT));
}

void TestItunesAgentRingtones::shouldReportAPlaceThatCannotBeWritten()
{
    const QString mediaFolder = m_dir.filePath("blocked/iTunes Media");
    const QString autoAdd = mediaFolder + "/Automatically Add to iTunes";
    // A folder where the ringtone's file would go.
    QVERIFY(QDir().mkpath(autoAdd + "/Blocked.m4r"));
    fx::useXmlLibrary(writeLibrary("blocked.xml", fx::libraryXml(mediaFolder, m_tracks, {})));
    const QString source = m_dir.filePath("made/Blocked.m4r");
    QVERIFY(fx::makeRingtone(source));
    const QByteArray before = fx::sha1(source);
    QCOMPARE(AppendRingtone(QFile::encodeName(source).constData()), int(ITA_E_IO));
    QVERIFY(fx::loggedLine("append ringtone: cannot write " + autoAdd + "/Blocked.m4r"));
    QVERIFY(QFileInfo(autoAdd + "/Blocked.m4r").isDir());
    QCOMPARE(fx::sha1(source), before);
    const int ringtones = fx::findPlaylist(ITA_COLLECTION_LIBRARY, "Ringtones");
    QCOMPARE(fx::songsOf(ITA_COLLECTION_LIBRARY, ringtones).size(), 0);
}

TW_TEST_MAIN(TestItunesAgentRingtones)
#include "tst_itunesagentringtones.moc"
