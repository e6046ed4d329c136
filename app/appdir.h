#pragma once
// Where the program's own files (skin, help, translations) are: beside the
// executable in a build tree, under share/tonewright in an installed one.

#include <QString>

// The executable's folder when it holds skin/default/default.css; otherwise
// <executable's folder>/../share/tonewright when that exists; otherwise the
// executable's folder. Needs the application object.
QString applicationDataDirectory();
