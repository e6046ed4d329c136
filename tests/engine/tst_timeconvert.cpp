// Milliseconds to clock times and back.

#include "engine/timeconvert.h"
#include "testenv.h"

class TestTimeConvert : public QObject
{
    Q_OBJECT

private slots:
    void shouldConvertMillisecondsToTime_data()
    {
        QTest::addColumn<qint64>("ms");
        QTest::addColumn<QTime>("expected");
        QTest::newRow("zero") << qint64(0) << QTime(0, 0, 0, 0);
        QTest::newRow("1h 2m 5.042s") << qint64(3725042) << QTime(1, 2, 5, 42);
        QTest::newRow("40 s") << qint64(40000) << QTime(0, 0, 40, 0);
        QTest::newRow("just under a day") << qint64(86399999) << QTime(23, 59, 59, 999);
    }

    void shouldConvertMillisecondsToTime()
    {
        QFETCH(qint64, ms);
        QFETCH(QTime, expected);
        const long value = long(ms);
        QCOMPARE(CTimeConvert::longToTime(value), expected);
    }

    void shouldConvertTimeToMilliseconds()
    {
        QCOMPARE(CTimeConvert::timeToLong(QTime(1, 2, 5, 42)), 3725042L);
        QCOMPARE(CTimeConvert::timeToLong(QTime(0, 0, 0, 0)), 0L);
        QCOMPARE(CTimeConvert::timeToLong(QTime(23, 59, 59, 999)), 86399999L);
    }

    void shouldGiveInvalidTimeForTwentyFourHours()
    {
        const long day = 86400000;
        QVERIFY(!CTimeConvert::longToTime(day).isValid());
    }

    void shouldRoundTripEverySecondOfAnHour()
    {
        for (long ms = 0; ms < 3600000; ms += 997)
            QCOMPARE(CTimeConvert::timeToLong(CTimeConvert::longToTime(ms)), ms);
    }
};

TW_TEST_MAIN(TestTimeConvert)
#include "tst_timeconvert.moc"
