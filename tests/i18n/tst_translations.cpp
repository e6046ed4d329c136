// The translations: every .ts file is complete (no unfinished, vanished or
// empty entry, the placeholders and markup of each source kept), holds every
// text the program has (lupdate run on a copy adds nothing and drops
// nothing), and its compiled .qm beside the executable translates.

#include "testenv.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>

namespace {

const QStringList kCodes = {"en", "fr", "ja", "de", "es", "it", "nl", "pt", "zh"};

struct Message
{
    QString context;
    QString source;
    QString translation;
    QString type; // the translation's type attribute: "", "unfinished", "vanished", ...
};

QList<Message> readTs(const QString& path, QString* error)
{
    QList<Message> messages;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        *error = "cannot open " + path;
        return messages;
    }
    QXmlStreamReader xml(&f);
    QString context;
    Message m;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("name"))
            context = xml.readElementText();
        else if (xml.name() == QLatin1String("message"))
            m = Message{context, QString(), QString(), QString()};
        else if (xml.name() == QLatin1String("source"))
            m.source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation")) {
            m.type = xml.attributes().value("type").toString();
            m.translation = xml.readElementText();
            messages << m;
        }
    }
    if (xml.hasError())
        *error = path + ": " + xml.errorString();
    return messages;
}

QSet<QString> keys(const QList<Message>& messages)
{
    QSet<QString> k;
    for (const Message& m : messages)
        k.insert(m.context + "\n" + m.source);
    return k;
}

// What a translation must carry over from its source: the %n places and
// the markup's tags (links, paragraphs, line breaks).
QStringList carried(const QString& text)
{
    static const QRegularExpression places("%\\d+|<[a-zA-Z/][^>]*>");
    QStringList found;
    auto it = places.globalMatch(text);
    while (it.hasNext()) {
        QString token = it.next().captured(0);
        // A tag's name is what counts; its attributes may carry words.
        const QRegularExpressionMatch tag = QRegularExpression("^<(/?[a-zA-Z]+)").match(token);
        found << (tag.hasMatch() ? "<" + tag.captured(1) + ">" : token);
    }
    found.sort();
    return found;
}

QString tsPath(const QString& code)
{
    return QStringLiteral(TW_SOURCE_DIR "/resources/translations/Tonewright_%1.ts").arg(code);
}

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void shouldBeCompleteInEveryLanguage_data()
    {
        QTest::addColumn<QString>("code");
        for (const QString& code : kCodes)
            QTest::newRow(qPrintable(code)) << code;
    }
    void shouldBeCompleteInEveryLanguage()
    {
        QFETCH(QString, code);
        QString error;
        const QList<Message> messages = readTs(tsPath(code), &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(messages.size() > 20);
        for (const Message& m : messages) {
            const QString where = m.context + ": " + m.source;
            QVERIFY2(m.type.isEmpty(), qPrintable(where + " is " + m.type));
            // " " (the dialogs' blank title) is the one text whose
            // translation is itself.
            QVERIFY2(!m.translation.trimmed().isEmpty() || m.source.trimmed().isEmpty(),
                     qPrintable(where + " has no translation"));
            QCOMPARE(carried(m.translation), carried(m.source));
        }
    }

    void shouldHoldEveryTextOfTheProgram_data() { shouldBeCompleteInEveryLanguage_data(); }
    void shouldHoldEveryTextOfTheProgram()
    {
        QFETCH(QString, code);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString copy = dir.filePath("copy.ts");
        QVERIFY(QFile::copy(tsPath(code), copy));
        QStringList args{"-silent", "-locations", "none", "-no-obsolete", "-I", TW_SOURCE_DIR};
        for (const char* folder : {"app", "core", "widgets", "audio", "editor", "engine", "library",
                                   "ui", "update", "crash", "cli"}) {
            const QString path = QStringLiteral(TW_SOURCE_DIR "/") + folder;
            if (QDir(path).exists())
                args << path;
        }
        args << "-target-language" << code << "-ts" << copy;
        QProcess lupdate;
        lupdate.start(TW_LUPDATE, args);
        QVERIFY(lupdate.waitForFinished(120000));
        QCOMPARE(lupdate.exitCode(), 0);

        QString error;
        const QList<Message> before = readTs(tsPath(code), &error);
        const QList<Message> after = readTs(copy, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        const QSet<QString> missing = keys(after) - keys(before);
        const QSet<QString> gone = keys(before) - keys(after);
        QVERIFY2(missing.isEmpty(), qPrintable("texts of the program not in the file: " +
                                               QStringList(missing.values()).join(" | ")));
        QVERIFY2(gone.isEmpty(), qPrintable("texts the program no longer has: " +
                                            QStringList(gone.values()).join(" | ")));
        for (const Message& m : after)
            QVERIFY2(m.type.isEmpty(), qPrintable(m.context + ": " + m.source + " " + m.type));
    }

    void shouldLoadTheCompiledFilesBesideTheProgram_data()
    {
        shouldBeCompleteInEveryLanguage_data();
    }
    void shouldLoadTheCompiledFilesBesideTheProgram()
    {
        QFETCH(QString, code);
        QTranslator translator;
        QVERIFY(translator.load("Tonewright_" + code, TW_BINARY_DIR));
        const QString tryAgain = translator.translate("CTryAgainDlg", "Try again");
        QVERIFY(!tryAgain.isEmpty());
        if (code == "en")
            QCOMPARE(tryAgain, QString("Try again"));
        else
            QVERIFY2(tryAgain != "Try again", qPrintable(tryAgain));
        // The toolkit's own texts, for every language but English.
        if (code != "en") {
            QTranslator qt;
            QVERIFY2(qt.load("qt_" + code, TW_BINARY_DIR), qPrintable("qt_" + code));
            QVERIFY(!qt.isEmpty());
        }
    }
};

TW_TEST_MAIN(TestTranslations)
#include "tst_translations.moc"
