// Double-buffered file output for the WAV renders.

#include "blockwriter.h"

#include "vexa.h"

#include <cstring>

namespace vexa {

BlockWriter::BlockWriter(size_t blockBytes) : m_fill(blockBytes), m_busy(blockBytes) {}

BlockWriter::~BlockWriter()
{
    stopHelper();
    if (m_file)
        std::fclose(m_file);
}

int BlockWriter::open(const std::string& path)
{
    m_file = std::fopen(path.c_str(), "wb");
    if (!m_file)
        return KELO_E_IO;
    // The blocks are already big: stdio's own buffer would only copy them again.
    std::setvbuf(m_file, nullptr, _IONBF, 0);
    m_helper = std::thread(&BlockWriter::run, this);
    return KELO_OK;
}

void BlockWriter::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_work || m_stop; });
        if (m_work) {
            const size_t bytes = m_busyBytes;
            lock.unlock();
            const bool ok = std::fwrite(m_busy.data(), 1, bytes, m_file) == bytes;
            lock.lock();
            m_failed = m_failed || !ok;
            m_busyBytes = 0;
            m_work = false;
            m_wake.notify_all();
        } else if (m_stop) {
            return;
        }
    }
}

bool BlockWriter::waitIdle(std::unique_lock<std::mutex>& lock)
{
    m_wake.wait(lock, [this] { return !m_work; });
    return !m_failed;
}

int BlockWriter::handOff()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!waitIdle(lock))
        return KELO_E_IO;
    if (m_fillBytes == 0)
        return KELO_OK;
    m_fill.swap(m_busy);
    m_busyBytes = m_fillBytes;
    m_fillBytes = 0;
    m_work = true;
    m_wake.notify_all();
    return KELO_OK;
}

int BlockWriter::append(const void* data, size_t bytes)
{
    if (!m_file)
        return KELO_E_IO;
    const char* from = static_cast<const char*>(data);
    while (bytes > 0) {
        const size_t n = std::min(bytes, m_fill.size() - m_fillBytes);
        std::memcpy(m_fill.data() + m_fillBytes, from, n);
        m_fillBytes += n;
        from += n;
        bytes -= n;
        if (m_fillBytes == m_fill.size() && handOff() != KELO_OK)
            return KELO_E_IO;
    }
    return KELO_OK;
}

int BlockWriter::overwrite(uint64_t offset, const void* data, size_t bytes)
{
    if (!m_file || handOff() != KELO_OK)
        return KELO_E_IO;
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!waitIdle(lock))
        return KELO_E_IO;
    // The helper is idle: the file is ours for the moment.
    const long at = static_cast<long>(offset);
    const bool ok = std::fflush(m_file) == 0 && std::fseek(m_file, at, SEEK_SET) == 0 &&
                    std::fwrite(data, 1, bytes, m_file) == bytes &&
                    std::fseek(m_file, 0, SEEK_END) == 0;
    return ok ? KELO_OK : KELO_E_IO;
}

void BlockWriter::stopHelper()
{
    if (!m_helper.joinable())
        return;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stop = true;
        m_wake.notify_all();
    }
    m_helper.join();
}

int BlockWriter::close()
{
    if (!m_file)
        return KELO_E_IO;
    int rc = handOff();
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (!waitIdle(lock))
            rc = KELO_E_IO;
    }
    stopHelper();
    // A full disk may only show when the last bytes go out.
    if (std::fflush(m_file) != 0)
        rc = KELO_E_IO;
    if (std::fclose(m_file) != 0)
        rc = KELO_E_IO;
    m_file = nullptr;
    return rc;
}

} // namespace vexa
