// KeloBugReport: packs what a problem report carries into a fresh directory.

#include "vexa.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/avutil.h>
}

#include <sys/utsname.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace vexa {
std::string dataDirectory();
}

namespace fs = std::filesystem;

namespace {

// How many of the newest day logs go into a report.
constexpr size_t kReportLogs = 3;

struct ReportState
{
    std::mutex mutex;
    std::vector<std::pair<std::string, std::string>> details;
    std::string settingsFile;
    std::string lastPack;
};

ReportState& state()
{
    static ReportState s;
    return s;
}

std::string firstLineWith(const char* file, const std::string& key)
{
    std::ifstream in(file);
    std::string line;
    while (std::getline(in, line))
        if (line.compare(0, key.size(), key) == 0) {
            const size_t colon = line.find(':');
            std::string value = colon == std::string::npos ? line : line.substr(colon + 1);
            value.erase(0, value.find_first_not_of(" \t"));
            return value;
        }
    return "unknown";
}

std::string summary(const char* bundleId, const char* appName,
                    const std::vector<std::pair<std::string, std::string>>& details)
{
    std::ostringstream out;
    const std::time_t now = std::time(nullptr);
    char when[64];
    std::strftime(when, sizeof when, "%Y-%m-%d %H:%M:%S %z", std::localtime(&now));
    out << "Problem report of " << (appName ? appName : "") << " (" << (bundleId ? bundleId : "")
        << ")\nMade: " << when << "\n\n";
    utsname uts{};
    if (uname(&uts) == 0)
        out << "OS: " << uts.sysname << " " << uts.release << " " << uts.version << " "
            << uts.machine << "\n";
    out << "CPU: " << firstLineWith("/proc/cpuinfo", "model name") << ", "
        << std::thread::hardware_concurrency() << " threads\n";
    out << "Memory: " << firstLineWith("/proc/meminfo", "MemTotal") << "\n";
    out << "FFmpeg: " << av_version_info() << " (libavcodec " << LIBAVCODEC_IDENT
        << ", libavformat " << LIBAVFORMAT_IDENT << ")\n";
    for (const auto& d : details)
        out << d.first << ": " << d.second << "\n";
    return out.str();
}

// The settings without any password line.
void copySettings(const std::string& from, const fs::path& to)
{
    std::ifstream in(from);
    if (!in)
        return;
    std::ofstream out(to);
    std::string line;
    while (std::getline(in, line)) {
        std::string key = line.substr(0, line.find('='));
        std::transform(key.begin(), key.end(), key.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        if (key.find("password") != std::string::npos)
            continue;
        out << line << "\n";
    }
}

void copyNewestLogs(const fs::path& logs, const fs::path& pack)
{
    std::error_code ec;
    std::vector<std::pair<fs::file_time_type, fs::path>> found;
    for (const auto& entry : fs::directory_iterator(logs, ec)) {
        if (entry.is_regular_file(ec) && entry.path().extension() == ".log")
            found.emplace_back(entry.last_write_time(ec), entry.path());
    }
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b) { return a.first > b.first; });
    for (size_t i = 0; i < found.size() && i < kReportLogs; ++i)
        fs::copy_file(found[i].second, pack / found[i].second.filename(),
                      fs::copy_options::overwrite_existing, ec);
}

} // namespace

extern "C" void KeloAddReportDetail(const char* name, const char* value)
{
    if (!name)
        return;
    ReportState& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.details.emplace_back(name, value ? value : "");
}

extern "C" void KeloSetReportSettingsFile(const char* path)
{
    ReportState& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.settingsFile = path ? path : "";
}

extern "C" const char* KeloBugReport(const char* bundleId, const char* appName, int, int)
{
    ReportState& s = state();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.lastPack.clear();
    const std::string data = vexa::dataDirectory();
    const fs::path root =
        fs::path(data.empty() ? fs::temp_directory_path().string() : data) / "reports";
    const std::time_t now = std::time(nullptr);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y%m%d-%H%M%S", std::localtime(&now));
    std::error_code ec;
    fs::create_directories(root, ec);
    // A fresh directory, even for two reports within a second.
    fs::path pack;
    for (int n = 0; n < 1000; ++n) {
        pack = root / (std::string("report-") + stamp + (n ? "-" + std::to_string(n) : ""));
        if (fs::create_directory(pack, ec))
            break;
        pack.clear();
    }
    if (pack.empty())
        return s.lastPack.c_str();
    std::ofstream(pack / "summary.txt") << summary(bundleId, appName, s.details);
    if (!data.empty())
        copyNewestLogs(fs::path(data) / "log", pack);
    if (!s.settingsFile.empty())
        copySettings(s.settingsFile, pack / fs::path(s.settingsFile).filename());
    s.lastPack = pack.string();
    return s.lastPack.c_str();
}
