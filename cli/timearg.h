#pragma once
// Times on the command line: "m:ss", "h:mm:ss" or plain seconds, the last
// field with an optional fraction ("1:02.5", "90", "12.25").

#include <QString>

// The time in ms; false for anything else (negative, empty, letters,
// seconds or minutes of 60 and more after a colon, more than three fields).
bool parseTimeArg(const QString& text, long long* ms);

// "m:ss.t" (tenths), or "h:mm:ss.t" from an hour on: for messages.
QString formatTimeArg(long long ms);
