#include "engine/timeconvert.h"

QTime CTimeConvert::longToTime(const long& ms)
{
    const long s = ms / 1000;
    const long hours = s / 3600;
    const long minutes = s / 60 - hours * 60;
    const long seconds = s % 3600 - minutes * 60;
    const long millis = ms % 1000;
    return QTime(int(hours), int(minutes), int(seconds), int(millis));
}

long CTimeConvert::timeToLong(const QTime& time)
{
    return time.hour() * 3600000L + time.minute() * 60000L + time.second() * 1000L + time.msec();
}
