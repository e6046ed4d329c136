#pragma once
// A named pipe for tests of code that must never wait on one: if the code
// under test is still stuck opening it for reading after the limit, the
// rescue opens the other end so that it comes free, and says so.

#include <QByteArray>
#include <QFile>
#include <QString>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace tw {

class PipeRescue
{
public:
    PipeRescue(const QString& path, int limitMs) : m_path(QFile::encodeName(path))
    {
        m_made = ::mkfifo(m_path.constData(), 0600) == 0;
        m_thread = std::thread([this, limitMs] {
            std::unique_lock<std::mutex> lock(m_mutex);
            if (m_wake.wait_for(lock, std::chrono::milliseconds(limitMs),
                                [this] { return m_done; }))
                return;
            // Succeeds only while a reader waits in open(2).
            const int fd = ::open(m_path.constData(), O_WRONLY | O_NONBLOCK);
            if (fd >= 0) {
                m_rescued = true;
                ::close(fd);
            }
        });
    }
    ~PipeRescue()
    {
        finish();
        ::unlink(m_path.constData());
    }
    PipeRescue(const PipeRescue&) = delete;
    PipeRescue& operator=(const PipeRescue&) = delete;

    bool made() const { return m_made; }
    // Ends the watch; true when the code under test had to be freed.
    bool finish()
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_done = true;
        }
        m_wake.notify_all();
        if (m_thread.joinable())
            m_thread.join();
        return m_rescued;
    }

private:
    QByteArray m_path;
    bool m_made = false;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_done = false;
    std::atomic<bool> m_rescued{false};
    std::thread m_thread;
};

} // namespace tw
