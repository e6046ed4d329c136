#include "editor/ringtonename.h"

QString safeRingtoneName(const QString& name)
{
    QString safe;
    safe.reserve(name.size());
    for (const QChar c : name) {
        if (c == QLatin1Char('/') || c == QLatin1Char('\\'))
            safe += QLatin1Char('-');
        else if (c.category() != QChar::Other_Control && c != QChar(0x2028) && c != QChar(0x2029))
            safe += c;
    }
    safe = safe.trimmed();
    // No hidden files, and no "." or "..".
    while (safe.startsWith(QLatin1Char('.')))
        safe.remove(0, 1);
    safe = safe.trimmed();
    if (safe.size() > kMaxRingtoneNameLength) {
        safe.truncate(kMaxRingtoneNameLength);
        // Never half a surrogate pair.
        if (safe.back().isHighSurrogate())
            safe.chop(1);
        safe = safe.trimmed();
    }
    return safe.isEmpty() ? QStringLiteral("Ringtone") : safe;
}
