#pragma once
// CProgressWait: how the GUI thread waits for one phase of a conversion. The
// engine's progress callback stores the progress (0..10000) and the status
// word here from any thread; start() keeps the event loop turning (asleep
// between events) until the phase is done or has failed, and tells the
// percentage of the whole job at every turn. Widget-free: the progress pane
// shows what it is told, the command line prints it, a bare editor ignores it.
// setProgress may run on any thread; everything else on the waiting thread.

#include "engine/iprogress.h"

#include <atomic>
#include <functional>

class CProgressWait : public IProgress
{
public:
    CProgressWait() = default;
    ~CProgressWait() override = default;

    CProgressWait(const CProgressWait&) = delete;
    CProgressWait& operator=(const CProgressWait&) = delete;

    void setProgress(int progress, int status) override;
    // Nothing to do: the last progress call already said how the job ended.
    void finish() override;

    // Waits for one phase that counts `weight` of the whole job and begins
    // at `offset` (both 0..1). Without `wait` the phase is only shown, as
    // all but done. 1 when the phase is over, -2 when the engine reported a
    // failure; the status then stays negative, so the next phase fails at
    // once too unless the engine reports a good status in between.
    int start(float weight, float offset, bool wait);

    // Hears the job's percentage at every turn of a wait.
    void setPercentReport(std::function<void(int percent)> report);

    // The job's percentage for a phase's progress (0..10000).
    static int percentOf(float progress, float weight, float offset);

private:
    // Plain numbers written by one thread and read by another; relaxed
    // atomics give exactly "the old or the new value" and nothing more.
    std::atomic<float> m_progress{0.0f};
    std::atomic<int> m_status{10000};
    std::function<void(int)> m_report;
};
