#pragma once
// A named file whose bytes each fuzz run replaces: a memory file (no disk
// traffic) reached through a symbolic link that carries the name, so that
// readers which go by the extension see the one they should. One per
// process; not thread-safe.

#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

class FuzzFile
{
public:
    FuzzFile();
    ~FuzzFile();
    FuzzFile(const FuzzFile&) = delete;
    FuzzFile& operator=(const FuzzFile&) = delete;

    // Replaces the contents and returns a path named `name` that opens them.
    const std::string& write(const std::string& name, const uint8_t* data, size_t size);

private:
    int m_fd = -1;
    std::string m_dir;
    std::string m_path;
};

} // namespace fuzz
