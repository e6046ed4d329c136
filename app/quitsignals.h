#pragma once
// CQuitSignals: SIGTERM (a logout, a service manager) and SIGINT (Ctrl+C in a
// terminal) end the event loop the normal way, so that shutdown runs and the
// crash flag is written false; only a real crash leaves it set. The signal
// handler only writes one byte into a socket pair; the GUI thread reads it
// through a socket notifier and quits. One instance, owned by start-up, on
// the GUI thread; it gives the two signals back to the system when it goes.
// Elsewhere than on Unix it does nothing.

#include <QObject>

class QSocketNotifier;

class CQuitSignals : public QObject
{
    Q_OBJECT

public:
    explicit CQuitSignals(QObject* parent = nullptr);
    ~CQuitSignals() override;

    CQuitSignals(const CQuitSignals&) = delete;
    CQuitSignals& operator=(const CQuitSignals&) = delete;

    // Whether one of the signals came: a quit asked for before the event
    // loop ran is not lost.
    bool received() const { return m_received; }

private:
    void onSignal();

    QSocketNotifier* m_notifier = nullptr;
    bool m_received = false;
};
