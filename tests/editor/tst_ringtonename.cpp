// A ringtone's name made safe for a file: no directory separators, no
// control characters, no leading dots or surrounding blanks, never empty, at
// most 100 characters and never half a character; and the phones' limit.

#include "editor/ringtonename.h"
#include "testenv.h"

class TestRingtoneName : public QObject
{
    Q_OBJECT

private slots:
    void shouldMakeTheNameSafe_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("safe");
        QTest::newRow("plain") << "Morning Light"
                               << "Morning Light";
        QTest::newRow("accents and kana") << "Café ★ 朝の光"
                                          << "Café ★ 朝の光";
        QTest::newRow("slashes") << "AC/DC\\Live"
                                 << "AC-DC-Live";
        QTest::newRow("climbing out") << "../../etc/passwd"
                                      << "-..-etc-passwd";
        QTest::newRow("hidden") << "...secret"
                                << "secret";
        QTest::newRow("blanks around") << "  Tone  "
                                       << "Tone";
        QTest::newRow("dots after blanks") << "  .tone"
                                           << "tone";
        QTest::newRow("control characters") << "a\tb\nc\x01"
                                               "d"
                                            << "abcd";
        QTest::newRow("line separators")
            << QString("a") + QChar(0x2028) + "b" + QChar(0x2029) << "ab";
        QTest::newRow("empty") << ""
                               << "Ringtone";
        QTest::newRow("only dots") << "..."
                                   << "Ringtone";
        QTest::newRow("only blanks and tabs") << " \t "
                                              << "Ringtone";
    }
    void shouldMakeTheNameSafe()
    {
        QFETCH(QString, typed);
        QFETCH(QString, safe);
        QCOMPARE(safeRingtoneName(typed), safe);
    }

    void shouldKeepAtMostAHundredCharacters()
    {
        const QString longName(250, QChar('x'));
        QCOMPARE(safeRingtoneName(longName).size(), kMaxRingtoneNameLength);
        QCOMPARE(kMaxRingtoneNameLength, 100);
        // A character outside the basic plane is never cut in half.
        QString emoji;
        for (int i = 0; i < 60; ++i)
            emoji += QString::fromUtf8("\xF0\x9F\x8E\xB5"); // two UTF-16 units each
        const QString cut = safeRingtoneName(emoji);
        QVERIFY(cut.size() <= kMaxRingtoneNameLength);
        QVERIFY(!cut.back().isHighSurrogate());
        QCOMPARE(cut.size() % 2, 0);
        // Blanks the cut leaves at the end go too.
        const QString spaced = QString(99, QChar('y')) + "  z";
        QCOMPARE(safeRingtoneName(spaced), QString(99, QChar('y')));
    }

    void shouldKnowThePhonesLimit() { QCOMPARE(kRingtoneLimitMs, 40000LL); }
};

TW_TEST_MAIN(TestRingtoneName)
#include "tst_ringtonename.moc"
