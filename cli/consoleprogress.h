#pragma once
// Progress on standard error: a bar redrawn in place on a terminal, plain
// "NAME: N%" lines at every tenth otherwise (a log or a pipe keeps them
// readable), nothing when quiet.

#include <QString>

#include <cstdio>

class CConsoleProgress
{
public:
    enum Mode
    {
        Bar,
        Lines,
        Silent
    };
    CConsoleProgress(Mode mode, const QString& label, std::FILE* out = stderr);
    ~CConsoleProgress();

    CConsoleProgress(const CConsoleProgress&) = delete;
    CConsoleProgress& operator=(const CConsoleProgress&) = delete;

    // Bar on a terminal, Lines otherwise; Silent when quiet.
    static Mode modeFor(bool quiet, std::FILE* out = stderr);

    // 0..100; a value below the last one shown is held at that one.
    void update(int percent);
    // Ends a bar's line, so that the next message starts on its own.
    void finish();

private:
    Mode m_mode;
    QString m_label;
    std::FILE* m_out;
    int m_shown = -1;
    bool m_open = false;
};
