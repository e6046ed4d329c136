#include "fuzzfile.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace fuzz {

FuzzFile::FuzzFile()
{
    m_fd = memfd_create("fuzz-input", 0);
    char dir[] = "/tmp/tw-fuzz-XXXXXX";
    if (m_fd < 0 || !mkdtemp(dir)) {
        std::perror("fuzz input file");
        std::abort();
    }
    m_dir = dir;
}

FuzzFile::~FuzzFile()
{
    if (!m_path.empty())
        unlink(m_path.c_str());
    rmdir(m_dir.c_str());
    close(m_fd);
}

const std::string& FuzzFile::write(const std::string& name, const uint8_t* data, size_t size)
{
    const std::string path = m_dir + "/" + name;
    if (path != m_path) {
        if (!m_path.empty())
            unlink(m_path.c_str());
        m_path = path;
        const std::string target = "/proc/self/fd/" + std::to_string(m_fd);
        if (symlink(target.c_str(), m_path.c_str()) != 0) {
            std::perror("fuzz input link");
            std::abort();
        }
    }
    if (ftruncate(m_fd, 0) != 0 ||
        (size > 0 && pwrite(m_fd, data, size, 0) != static_cast<ssize_t>(size))) {
        std::perror("fuzz input write");
        std::abort();
    }
    return m_path;
}

} // namespace fuzz
