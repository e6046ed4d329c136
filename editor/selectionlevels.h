#pragma once
// CSelectionLevels: the selection's loudness and gain, worked out off the
// GUI thread. The editor asks again whenever the selection, the fades, the
// volume or the "Normalize" choice change; a worker thread reads the span
// and runs CSpanRender on the latest request only (a newer request cancels
// the one under way), and the result comes back to the GUI thread. A
// result that no longer matches the latest request is dropped, so figures
// are never shown for settings that have changed. Owns its worker thread,
// which it stops and joins when destroyed; call it from the GUI thread.

#include "editor/spanrender.h"

#include <QObject>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

// What the levels are worked out for.
struct LevelsRequest
{
    QString path;     // the temporary WAV
    tagWaveInfo wave; // its layout and the fades, as spanLayout() copies them
    long long beginMs = 0;
    long long endMs = 0;
    LoudnessSettings settings;

    bool sameAs(const LevelsRequest& o) const;
};

class CSelectionLevels : public QObject
{
    Q_OBJECT

public:
    explicit CSelectionLevels(QObject* parent = nullptr);
    ~CSelectionLevels() override;

    CSelectionLevels(const CSelectionLevels&) = delete;
    CSelectionLevels& operator=(const CSelectionLevels&) = delete;

    // Works the levels out anew unless the request is the one already in
    // hand; `measuring` at once, then `measured` when they are ready.
    void request(const LevelsRequest& request);
    // No selection any more: the figures go, what is under way is dropped.
    void clear();
    // The levels of the latest request, or nullptr while they are worked out.
    std::shared_ptr<const SpanLevels> current() const { return m_current; }
    // Whether a request is still being worked out.
    bool isBusy() const { return m_busy; }

signals:
    void measuring();
    void measured();

private:
    void run();
    void deliver(unsigned long long generation, std::shared_ptr<const SpanLevels> levels);

    std::shared_ptr<const SpanLevels> m_current;
    LevelsRequest m_latest;
    bool m_haveLatest = false;
    bool m_busy = false;

    // Shared with the worker, under m_mutex.
    std::mutex m_mutex;
    std::condition_variable m_wake;
    LevelsRequest m_pending;
    bool m_hasPending = false;
    bool m_quit = false;
    unsigned long long m_generation = 0; // of the latest request
    std::atomic<bool> m_cancel{false};
    std::thread m_worker;
};
