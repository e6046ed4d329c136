#pragma once
// BlockWriter: a file written in big blocks by a helper thread, so that the
// render thread goes on decoding while the kernel takes the last block. The
// caller fills one block while the helper writes the other. Owns the file
// and the helper thread; its calls are made from one thread (the render job's).

#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vexa {

class BlockWriter
{
public:
    explicit BlockWriter(size_t blockBytes = size_t(1) << 20);
    ~BlockWriter();
    BlockWriter(const BlockWriter&) = delete;
    BlockWriter& operator=(const BlockWriter&) = delete;

    // Creates or truncates the file. KELO_OK or KELO_E_IO.
    int open(const std::string& path);
    // KELO_E_IO once any earlier write failed.
    int append(const void* data, size_t bytes);
    // Writes everything appended so far, then the bytes at the offset.
    int overwrite(uint64_t offset, const void* data, size_t bytes);
    // Writes everything and closes; KELO_OK only when every byte reached the file.
    int close();

private:
    void run();
    // Waits until the helper is idle; false when a write failed.
    bool waitIdle(std::unique_lock<std::mutex>& lock);
    int handOff();
    void stopHelper();

    std::FILE* m_file = nullptr;
    std::vector<char> m_fill; // filled by the caller
    size_t m_fillBytes = 0;
    std::vector<char> m_busy; // written by the helper
    size_t m_busyBytes = 0;

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_work = false;
    bool m_stop = false;
    bool m_failed = false;
    std::thread m_helper;
};

} // namespace vexa
