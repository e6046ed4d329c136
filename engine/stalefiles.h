#pragma once
// The hidden files an interrupted conversion leaves in a folder: the
// engine's half-written ".<name>.<id>.part" and the command line's staging
// ".tonewright-*". Removed once nothing has written them for
// kStaleFileSeconds: a conversion running elsewhere writes its file all the
// time, so only what was left behind goes. Any thread.

#include <QString>

constexpr int kStaleFileSeconds = 60;

// The number of files removed from `dir`.
int removeStaleFiles(const QString& dir);
