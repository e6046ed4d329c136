#include "app/quitsignals.h"

#include <QCoreApplication>
#include <QDebug>
#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// [0] is read by the GUI thread, [1] written by the handler.
int g_pipe[2] = {-1, -1};
constexpr int kSignals[] = {SIGTERM, SIGINT};

extern "C" void onQuitSignal(int sig)
{
    const unsigned char byte = static_cast<unsigned char>(sig);
    // Async-signal-safe; a full socket already holds a quit to read.
    [[maybe_unused]] const ssize_t written = ::write(g_pipe[1], &byte, 1);
}

} // namespace

CQuitSignals::CQuitSignals(QObject* parent) : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, g_pipe) != 0) {
        qWarning("quit signals: no socket pair; SIGTERM and SIGINT end the program at once");
        return;
    }
    m_notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &CQuitSignals::onSignal);
    struct sigaction action = {};
    action.sa_handler = onQuitSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int sig : kSignals)
        sigaction(sig, &action, nullptr);
}

CQuitSignals::~CQuitSignals()
{
    if (!m_notifier)
        return;
    for (int sig : kSignals)
        std::signal(sig, SIG_DFL);
    m_notifier->setEnabled(false);
    ::close(g_pipe[0]);
    ::close(g_pipe[1]);
    g_pipe[0] = g_pipe[1] = -1;
}

void CQuitSignals::onSignal()
{
    unsigned char sig = 0;
    if (::read(g_pipe[0], &sig, 1) != 1)
        return;
    qDebug("quit on signal %d", int(sig));
    m_received = true;
    QCoreApplication::quit();
}

#else

CQuitSignals::CQuitSignals(QObject* parent) : QObject(parent) {}
CQuitSignals::~CQuitSignals() = default;
void CQuitSignals::onSignal() {}

#endif
