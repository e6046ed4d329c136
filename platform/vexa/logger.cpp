// KeloLogMessage: time-stamped lines to standard error and to today's log
// file; FFmpeg's own log is routed here instead of to standard error.

#include "fflog.h"
#include "vexa.h"

extern "C" {
#include <libavutil/log.h>
}

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <mutex>
#include <string>
#include <sys/stat.h>
#include <sys/time.h>
#include <vector>

namespace {

std::mutex g_logMutex;
std::string g_dataDir;
std::atomic<bool> g_echo{true};

// FFmpeg's messages as engine log lines, at FFmpeg's level number.
#if defined(__GNUC__)
__attribute__((format(printf, 3, 0)))
#endif
void ffmpegLogLine(void* object, int level, const char* format, va_list args)
{
    if (level > av_log_get_level())
        return;
    // FFmpeg builds some lines in parts; the prefix goes on the first.
    thread_local int printPrefix = 1;
    char line[1024];
    av_log_format_line2(object, level, format, args, line, sizeof line, &printPrefix);
    std::string text(line);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    if (!text.empty())
        KeloLogMessage(level, "ffmpeg: %s", text.c_str());
}

void makeDirs(const std::string& path)
{
    std::string part;
    for (size_t i = 0; i <= path.size(); ++i) {
        if (i == path.size() || path[i] == '/') {
            if (!part.empty())
                mkdir(part.c_str(), 0755);
        }
        if (i < path.size())
            part += path[i];
    }
}

std::string dayFile(const std::tm& tm)
{
    char name[32];
    std::snprintf(name, sizeof name, "%02d.%02d.%04d.log", tm.tm_mday, tm.tm_mon + 1,
                  tm.tm_year + 1900);
    return g_dataDir + "/log/" + name;
}

} // namespace

namespace vexa {
void routeFfmpegLog()
{
    static std::once_flag once;
    std::call_once(once, [] {
        av_log_set_level(AV_LOG_ERROR);
        av_log_set_callback(ffmpegLogLine);
    });
}

std::string dataDirectory()
{
    std::lock_guard<std::mutex> lock(g_logMutex);
    return g_dataDir;
}
} // namespace vexa

extern "C" void KeloSetDataDirectory(const char* dataDir)
{
    std::lock_guard<std::mutex> lock(g_logMutex);
    g_dataDir = dataDir ? dataDir : "";
    while (g_dataDir.size() > 1 && g_dataDir.back() == '/')
        g_dataDir.pop_back();
}

extern "C" void KeloSetLogEcho(int on)
{
    g_echo.store(on != 0);
}

extern "C" void KeloLogMessage(int level, const char* format, ...)
{
    if (!format)
        return;
    va_list args;
    va_start(args, format);
    va_list copy;
    va_copy(copy, args);
    const int n = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    std::vector<char> text(n > 0 ? static_cast<size_t>(n) + 1 : 1, '\0');
    if (n > 0)
        std::vsnprintf(text.data(), text.size(), format, args);
    va_end(args);

    timeval tv;
    gettimeofday(&tv, nullptr);
    std::tm tm;
    localtime_r(&tv.tv_sec, &tm);
    char stamp[48];
    std::snprintf(stamp, sizeof stamp, "%04d-%02d-%02d %02d:%02d:%02d.%03d [%d] ",
                  tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec,
                  static_cast<int>(tv.tv_usec / 1000), level);

    std::lock_guard<std::mutex> lock(g_logMutex);
    if (g_echo.load()) {
        std::fprintf(stderr, "%s%s\n", stamp, text.data());
        std::fflush(stderr);
    }
    if (g_dataDir.empty())
        return;
    const std::string path = dayFile(tm);
    FILE* f = std::fopen(path.c_str(), "a");
    if (!f && errno == ENOENT) {
        makeDirs(g_dataDir + "/log");
        f = std::fopen(path.c_str(), "a");
    }
    if (!f)
        return;
    std::fprintf(f, "%s%s\n", stamp, text.data());
    std::fclose(f);
}
