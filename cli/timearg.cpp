#include "cli/timearg.h"

#include <QRegularExpression>
#include <QStringList>

#include <cmath>

namespace {

// Whole digits, or digits with a fraction of at most three places (ms).
bool parseSeconds(const QString& text, long long* ms)
{
    static const QRegularExpression form("^(\\d{1,9})(?:\\.(\\d{1,3}))?$");
    const QRegularExpressionMatch m = form.match(text);
    if (!m.hasMatch())
        return false;
    const QString fraction = m.captured(2).leftJustified(3, '0');
    *ms = m.captured(1).toLongLong() * 1000 + fraction.toLongLong();
    return true;
}

bool parseWhole(const QString& text, long long* value)
{
    static const QRegularExpression form("^\\d{1,6}$");
    if (!form.match(text).hasMatch())
        return false;
    *value = text.toLongLong();
    return true;
}

} // namespace

bool parseTimeArg(const QString& text, long long* ms)
{
    const QStringList fields = text.trimmed().split(':');
    if (fields.isEmpty() || fields.size() > 3)
        return false;
    long long seconds = 0;
    if (!parseSeconds(fields.last(), &seconds))
        return false;
    if (fields.size() == 1) {
        *ms = seconds;
        return true;
    }
    // After a colon the seconds and minutes are clock fields.
    if (seconds >= 60000)
        return false;
    long long minutes = 0;
    if (!parseWhole(fields.at(fields.size() - 2), &minutes))
        return false;
    long long hours = 0;
    if (fields.size() == 3) {
        if (minutes >= 60 || !parseWhole(fields.first(), &hours))
            return false;
    }
    *ms = ((hours * 60 + minutes) * 60) * 1000 + seconds;
    return true;
}

QString formatTimeArg(long long ms)
{
    const long long tenths = std::llround(ms / 100.0);
    const long long totalSeconds = tenths / 10;
    const long long hours = totalSeconds / 3600;
    const long long minutes = totalSeconds / 60 % 60;
    const QString seconds =
        QString("%1.%2").arg(totalSeconds % 60, 2, 10, QChar('0')).arg(tenths % 10);
    if (hours > 0)
        return QString("%1:%2:%3").arg(hours).arg(minutes, 2, 10, QChar('0')).arg(seconds);
    return QString("%1:%2").arg(minutes).arg(seconds);
}
