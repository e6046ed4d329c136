// The titles a song list sorts by: the keys of every pair compare as QString
// compares the titles without regard to case, for tricky titles of every
// kind (surrogate pairs and lone surrogates too) and for every character on
// its own; the agent's titles are kept and decoded as the wrapper decodes
// them, and both ways of making a key agree.

#include "library/titlesortkeys.h"
#include "testenv.h"

#include <QTest>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace {

int sign(int value)
{
    return (value > 0) - (value < 0);
}

// ASCII around the letters and digits, case pairs, prefixes, and texts
// beyond ASCII whose case folding is not plain: sharp s, Kelvin sign, dotted
// and dotless i, letters beyond the first plane (with case pairs among
// them), lone surrogates, a full-width letter.
QVector<QString> trickyTitles()
{
    QVector<QString> titles;
    for (const char* title :
         {"",           "a",          "A",      "ab",          "AB",          "aB",
          "abc",        "ABD",        "b",      "B",           "z",           "Z",
          "_",          "[",          "`",      "{",           "~",           "@",
          " ",          "0",          "9",      "a b",         "a  b",        "a\tb",
          "\x7f",       "Song 10",    "song 9", "SONG 100",    "Ärger",       "ärger",
          "ÄRGER",      "arger",      "Zoë",    "zoe",         "ZOË",         "straße",
          "STRASSE",    "ß",          "ss",     "\u212a",      "k",           "K",
          "\u0130",     "i",          "\u0131", "I",           "\U0001F600",  "\U0001F601",
          "\U00010400", "\U00010428", "\uff21", "\uff41",      "é",           "e\u0301",
          "\u2126",     "\u03a9",     "\u03c9", "\U0001F600a", "a\U00010400", "A\U00010428",
          "\U0010FFFF", "\uFFFF"})
        titles << QString::fromUtf8(title);
    // Surrogates on their own, before and after other units.
    titles << QString(QChar(0xD800)) << QString(QChar(0xDBFF)) << QString(QChar(0xDC00))
           << QString(QChar(0xDFFF)) << QString(QChar(0xD801)) + 'x' << QString(QChar(0xDC28)) + 'a'
           << QString("a") + QChar(0xDC00) << QString(QChar(0xDC00)) + QChar(0xD801)
           << QString(QChar(0xD801)) + QChar(0xD801);
    return titles;
}

std::string keyOf(const QString& title)
{
    return CTitleSortKeys::keyOf(title);
}

} // namespace

class TestTitleSortKeys : public QObject
{
    Q_OBJECT

private slots:
    void shouldCompareEveryPairAsQStringDoesWithoutCase();
    void shouldOrderEveryCharacterAsQStringDoesWithoutCase();
    void shouldKeepTheAgentsTitlesAndDecodeThemAsTheWrapperDoes();
    void shouldDecodeWhatIsNotPlainUtf8AsTheWrapperDoes();
    void shouldForgetTheTitlesWhenClearedOrReplaced();
};

void TestTitleSortKeys::shouldCompareEveryPairAsQStringDoesWithoutCase()
{
    const QVector<QString> titles = trickyTitles();
    for (const QString& a : titles) {
        for (const QString& b : titles) {
            const int expected = sign(QString::compare(a, b, Qt::CaseInsensitive));
            if (sign(keyOf(a).compare(keyOf(b))) != expected)
                QFAIL(qPrintable(
                    QString("\"%1\" against \"%2\": %3 expected").arg(a, b).arg(expected)));
        }
    }
}

void TestTitleSortKeys::shouldOrderEveryCharacterAsQStringDoesWithoutCase()
{
    // One title a character, every plane, and every surrogate on its own.
    // Sorted by the keys, each title compares with the next as QString
    // compares them: so the two orders are the same order.
    QVector<QString> titles;
    titles.reserve(0x110000);
    for (char32_t c = 0; c <= 0x10FFFF; ++c)
        titles << (c < 0x10000 ? QString(QChar(char16_t(c))) : QString::fromUcs4(&c, 1));
    std::vector<std::string> keys;
    keys.reserve(static_cast<size_t>(titles.size()));
    for (const QString& title : titles)
        keys.push_back(keyOf(title));
    std::vector<int> order(static_cast<size_t>(titles.size()));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return keys[static_cast<size_t>(a)] < keys[static_cast<size_t>(b)];
    });
    for (size_t n = 1; n < order.size(); ++n) {
        const int a = order[n - 1];
        const int b = order[n];
        const int expected = sign(QString::compare(titles[a], titles[b], Qt::CaseInsensitive));
        const int actual = sign(keys[static_cast<size_t>(a)].compare(keys[static_cast<size_t>(b)]));
        if (actual != expected)
            QFAIL(qPrintable(QString("U+%1 before U+%2: %3 expected, %4 from the keys")
                                 .arg(a, 4, 16, QChar('0'))
                                 .arg(b, 4, 16, QChar('0'))
                                 .arg(expected)
                                 .arg(actual)));
    }
}

void TestTitleSortKeys::shouldKeepTheAgentsTitlesAndDecodeThemAsTheWrapperDoes()
{
    // As the agent hands them over: each followed by a NUL; an empty title,
    // titles beyond ASCII, and a byte that is not UTF-8.
    const char bytes[] = "Beat It\0\0J\xc3\xb3ga\0\xf0\x9f\x98\x80 Smile\0caf\xe9\0BEAT IT\0rest";
    CTitleSortKeys keys;
    keys.assignUtf8(QByteArray(bytes, sizeof bytes - 1));
    // The bytes after the last NUL are no title.
    QCOMPARE(keys.size(), 6);
    const QStringList expected = {"Beat It",
                                  "",
                                  QString::fromUtf8("J\xc3\xb3ga"),
                                  QString::fromUtf8("\xf0\x9f\x98\x80 Smile"),
                                  QString::fromLocal8Bit("caf\xe9"),
                                  "BEAT IT"};
    for (int i = 0; i < keys.size(); ++i) {
        QCOMPARE(keys.title(i), expected[i]);
        // The quick way for ASCII and the decoded way give the same key.
        QCOMPARE(keys.key(i), std::string_view(keyOf(expected[i])));
    }
    QCOMPARE(keys.key(0), keys.key(5));
    QCOMPARE(keys.key(1), std::string_view());
}

void TestTitleSortKeys::shouldDecodeWhatIsNotPlainUtf8AsTheWrapperDoes()
{
    // Bytes that are not UTF-8 (each may become a three-byte replacement),
    // overlong forms, an encoded surrogate, a byte order mark first and
    // within, a character past U+10FFFF, a sequence cut short, and valid
    // titles between them.
    const QList<QByteArray> titles = {"\xff\xfe\xff\xff",
                                      "\xc0\xaf overlong",
                                      "\xe0\x80\xaf",
                                      "\xed\xa0\x80 surrogate",
                                      "\xef\xbb\xbf"
                                      "bom first",
                                      "a\xef\xbb\xbf"
                                      "b",
                                      "\xf4\x90\x80\x80",
                                      "ab\xe2\x82",
                                      "\xf0\x90\x90\x80 Deseret",
                                      "caf\xc3\xa9",
                                      "\x80"};
    QByteArray bytes;
    for (const QByteArray& title : titles)
        bytes += title + '\0';
    CTitleSortKeys keys;
    keys.assignUtf8(bytes);
    QCOMPARE(keys.size(), titles.size());
    for (int i = 0; i < titles.size(); ++i) {
        const QString expected = QString::fromLocal8Bit(titles[i]);
        QCOMPARE(keys.title(i), expected);
        QCOMPARE(keys.key(i), std::string_view(keyOf(expected)));
    }
}

void TestTitleSortKeys::shouldForgetTheTitlesWhenClearedOrReplaced()
{
    CTitleSortKeys keys;
    QCOMPARE(keys.size(), 0);
    const char first[] = "one\0two\0three\0";
    keys.assignUtf8(QByteArray(first, sizeof first - 1));
    QCOMPARE(keys.size(), 3);
    const char second[] = "yesterday\0YESTERDAY\0";
    keys.assignUtf8(QByteArray(second, sizeof second - 1));
    QCOMPARE(keys.size(), 2);
    QCOMPARE(keys.title(0), QString("yesterday"));
    QCOMPARE(keys.key(0), keys.key(1));
    keys.clear();
    QCOMPARE(keys.size(), 0);
    keys.assignUtf8(QByteArray());
    QCOMPARE(keys.size(), 0);
}

TW_TEST_MAIN(TestTitleSortKeys)
#include "tst_titlesortkeys.moc"
