#include "engine/progresswait.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <vexa.h>

namespace {
// What a phase shown without waiting reads: all but done.
constexpr float kAllButDone = KELO_PROGRESS_DONE - 1;
// How often a wait looks at the progress when nothing else wakes it.
constexpr int kPollMs = 25;
} // namespace

void CProgressWait::setProgress(int progress, int status)
{
    m_progress.store(static_cast<float>(progress), std::memory_order_relaxed);
    m_status.store(status, std::memory_order_relaxed);
}

void CProgressWait::finish() {}

void CProgressWait::setPercentReport(std::function<void(int)> report)
{
    m_report = std::move(report);
}

int CProgressWait::percentOf(float progress, float weight, float offset)
{
    return static_cast<int>(progress / 100.0 * weight + offset * 100.0);
}

int CProgressWait::start(float weight, float offset, bool wait)
{
    m_progress.store(wait ? 0.0f : kAllButDone, std::memory_order_relaxed);
    // While waiting, sleep until something happens (the engine's progress is
    // posted to this thread, an animation ticks) or the poll comes round: a
    // spinning loop would take a core from the conversion, and a command-line
    // batch runs several of these waits side by side.
    QTimer poll;
    QEventLoop::ProcessEventsFlags flags = QEventLoop::ExcludeUserInputEvents;
    if (wait) {
        poll.start(kPollMs);
        flags |= QEventLoop::WaitForMoreEvents;
    }
    do {
        QCoreApplication::processEvents(flags);
        const float current = m_progress.load(std::memory_order_relaxed);
        // The last percentage stays shown when the phase fails.
        if (m_status.load(std::memory_order_relaxed) < 0 && current < KELO_PROGRESS_DONE)
            return -2;
        if (m_report)
            m_report(percentOf(current, weight, offset));
        if (current >= KELO_PROGRESS_DONE)
            break;
    } while (wait);
    m_status.store(KELO_PROGRESS_DONE, std::memory_order_relaxed);
    return 1;
}
