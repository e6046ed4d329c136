// The titles a song list sorts by: every pair compares as QString compares
// it without regard to case, for tricky titles of every kind and for every
// character of the first plane on its own.

#include "library/titlesortkeys.h"
#include "testenv.h"

#include <QTest>

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

int sign(int value)
{
    return (value > 0) - (value < 0);
}

// ASCII around the letters and digits, case pairs, prefixes, and texts
// beyond ASCII whose case folding is not plain: sharp s, Kelvin sign, dotted
// and dotless i, a letter beyond the first plane, a full-width letter.
QVector<QString> trickyTitles()
{
    QVector<QString> titles;
    for (const char* title :
         {"",           "a",       "A",      "ab",    "AB",         "aB",         "abc",
          "ABD",        "b",       "B",      "z",     "Z",          "_",          "[",
          "`",          "{",       "~",      "@",     " ",          "0",          "9",
          "a b",        "a  b",    "a\tb",   "\x7f",  "Song 10",    "song 9",     "SONG 100",
          "Ärger",      "ärger",   "ÄRGER",  "arger", "Zoë",        "zoe",        "ZOË",
          "straße",     "STRASSE", "ß",      "ss",    "\u212a",     "k",          "K",
          "\u0130",     "i",       "\u0131", "I",     "\U0001F600", "\U0001F601", "\U00010400",
          "\U00010428", "\uff21",  "\uff41", "é",     "e\u0301",    "\u2126",     "\u03a9",
          "\u03c9"})
        titles << QString::fromUtf8(title);
    return titles;
}

} // namespace

class TestTitleSortKeys : public QObject
{
    Q_OBJECT

private slots:
    void shouldCompareEveryPairAsQStringDoesWithoutCase();
    void shouldOrderEveryCharacterAsQStringDoesWithoutCase();
    void shouldKeepTheTitlesAndForgetThemWhenCleared();
};

void TestTitleSortKeys::shouldCompareEveryPairAsQStringDoesWithoutCase()
{
    const QVector<QString> titles = trickyTitles();
    CTitleSortKeys keys;
    keys.assign(titles);
    for (int a = 0; a < titles.size(); ++a) {
        for (int b = 0; b < titles.size(); ++b) {
            const int expected = sign(QString::compare(titles[a], titles[b], Qt::CaseInsensitive));
            if (sign(keys.compareCaseInsensitive(a, b)) != expected)
                QFAIL(qPrintable(QString("\"%1\" against \"%2\": %3 expected")
                                     .arg(titles[a], titles[b])
                                     .arg(expected)));
        }
    }
}

void TestTitleSortKeys::shouldOrderEveryCharacterAsQStringDoesWithoutCase()
{
    // One title a character of the first plane (surrogates cannot stand
    // alone). Sorted by the keys, each title compares with the next as
    // QString compares them: so the two orders are the same order.
    QVector<QString> titles;
    for (char32_t c = 0; c <= 0xFFFF; ++c)
        if (!QChar::isSurrogate(c))
            titles << QString(QChar(char16_t(c)));
    CTitleSortKeys keys;
    keys.assign(titles);
    std::vector<int> order(static_cast<size_t>(titles.size()));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return keys.compareCaseInsensitive(a, b) < 0; });
    for (size_t n = 1; n < order.size(); ++n) {
        const int a = order[n - 1];
        const int b = order[n];
        const int expected = sign(QString::compare(titles[a], titles[b], Qt::CaseInsensitive));
        if (sign(keys.compareCaseInsensitive(a, b)) != expected)
            QFAIL(qPrintable(QString("U+%1 before U+%2: %3 expected")
                                 .arg(titles[a][0].unicode(), 4, 16, QChar('0'))
                                 .arg(titles[b][0].unicode(), 4, 16, QChar('0'))
                                 .arg(expected)));
    }
}

void TestTitleSortKeys::shouldKeepTheTitlesAndForgetThemWhenCleared()
{
    CTitleSortKeys keys;
    QCOMPARE(keys.size(), 0);
    keys.assign({"Beat It", "Jóga", QString()});
    QCOMPARE(keys.size(), 3);
    QCOMPARE(keys.title(1), QString::fromUtf8("Jóga"));
    QVERIFY(keys.title(2).isEmpty());
    // A second set replaces the first.
    keys.assign({"yesterday", "YESTERDAY"});
    QCOMPARE(keys.size(), 2);
    QCOMPARE(keys.title(0), QString("yesterday"));
    QCOMPARE(keys.compareCaseInsensitive(0, 1), 0);
    keys.clear();
    QCOMPARE(keys.size(), 0);
}

TW_TEST_MAIN(TestTitleSortKeys)
#include "tst_titlesortkeys.moc"
