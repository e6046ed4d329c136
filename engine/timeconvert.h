#pragma once
// Milliseconds to a clock time and back, for the time edits.

#include <QTime>

class CTimeConvert
{
public:
    // Hours of 24 or more give an invalid QTime; callers get it as it is.
    static QTime longToTime(const long& ms);
    static long timeToLong(const QTime& time);
};
