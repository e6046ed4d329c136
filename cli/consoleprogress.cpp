#include "cli/consoleprogress.h"

#include "cli/localpath.h"

#include <unistd.h>

#include <algorithm>

namespace {
constexpr int kBarWidth = 30;
constexpr int kLineStep = 10;
} // namespace

CConsoleProgress::CConsoleProgress(Mode mode, const QString& label, std::FILE* out)
    : m_mode(mode), m_label(label), m_out(out)
{
}

CConsoleProgress::~CConsoleProgress()
{
    finish();
}

CConsoleProgress::Mode CConsoleProgress::modeFor(bool quiet, std::FILE* out)
{
    if (quiet)
        return Silent;
    return isatty(fileno(out)) ? Bar : Lines;
}

void CConsoleProgress::update(int percent)
{
    percent = std::clamp(percent, 0, 100);
    if (percent <= m_shown)
        return;
    switch (m_mode) {
    case Silent:
        return;
    case Lines:
        // Only whole tenths, and 100 once.
        if (percent / kLineStep == std::max(m_shown, 0) / kLineStep && m_shown >= 0)
            return;
        m_shown = percent / kLineStep * kLineStep;
        std::fprintf(m_out, "%s: %d%%\n", localpath::encode(m_label).constData(), m_shown);
        break;
    case Bar: {
        m_shown = percent;
        const int filled = percent * kBarWidth / 100;
        const QByteArray bar = QByteArray(filled, '#') + QByteArray(kBarWidth - filled, '.');
        std::fprintf(m_out, "\r[%s] %3d%%  %s", bar.constData(), percent,
                     localpath::encode(m_label).constData());
        m_open = true;
        break;
    }
    }
    std::fflush(m_out);
}

void CConsoleProgress::finish()
{
    if (m_open) {
        std::fputc('\n', m_out);
        std::fflush(m_out);
        m_open = false;
    }
}
