#pragma once
// The rules a ringtone's name follows before it becomes a file, and the
// length phones accept: shared by the window's create step and the command
// line. Stateless.

#include <QString>

// The longest name kept, in characters.
constexpr int kMaxRingtoneNameLength = 100;
// Phones refuse ringtones longer than this (ms), and alert tones longer than
// the second. (The shortest span is the editor's shortest selection,
// kMinSelection.)
constexpr long long kRingtoneLimitMs = 40000;
constexpr long long kAlertLimitMs = 30000;

// The name as a file name: directory separators become "-", control
// characters go, and so do leading dots and blanks at either end; at most
// 100 characters; "Ringtone" when nothing is left.
QString safeRingtoneName(const QString& name);
