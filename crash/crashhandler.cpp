#include "crash/crashhandler.h"

#include "engine/platformfolders.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <cstring>
#include <ctime>

#ifdef Q_OS_UNIX
#include <execinfo.h>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_UNIX

constexpr int kSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr int kMaxFrames = 64;

// Everything the handler needs, made before any crash: nothing may be
// allocated or locked once the signal has come.
char g_folder[4096];
long g_utcOffset = 0; // seconds east of UTC when the handler was installed
char g_altStack[64 * 1024];

// Appends text to a fixed buffer; no allocation, no locale.
struct Line
{
    char text[512];
    size_t used = 0;
    void add(const char* s)
    {
        while (*s && used + 1 < sizeof text)
            text[used++] = *s++;
        text[used] = '\0';
    }
    void addNumber(long long v, int width = 0)
    {
        char digits[24];
        int n = 0;
        const bool negative = v < 0;
        unsigned long long u = negative ? 0ULL - static_cast<unsigned long long>(v)
                                        : static_cast<unsigned long long>(v);
        do {
            digits[n++] = static_cast<char>('0' + u % 10);
            u /= 10;
        } while (u && n < 23);
        while (n < width && n < 23)
            digits[n++] = '0';
        if (negative)
            add("-");
        char out[2] = {0, 0};
        while (n > 0) {
            out[0] = digits[--n];
            add(out);
        }
    }
};

// Civil date from days since 1970-01-01 (Howard Hinnant's algorithm).
void civil(long long days, long long* y, unsigned* m, unsigned* d)
{
    days += 719468;
    const long long era = (days >= 0 ? days : days - 146096) / 146097;
    const unsigned doe = static_cast<unsigned>(days - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    *d = doy - (153 * mp + 2) / 5 + 1;
    *m = mp < 10 ? mp + 3 : mp - 9;
    *y = static_cast<long long>(yoe) + era * 400 + (*m <= 2);
}

const char* signalName(int sig)
{
    switch (sig) {
    case SIGSEGV:
        return "SIGSEGV (bad memory access)";
    case SIGBUS:
        return "SIGBUS (bus error)";
    case SIGFPE:
        return "SIGFPE (arithmetic error)";
    case SIGILL:
        return "SIGILL (illegal instruction)";
    case SIGABRT:
        return "SIGABRT (aborted)";
    default:
        return "a fatal signal";
    }
}

void writeAll(int fd, const char* text)
{
    size_t left = std::strlen(text);
    while (left > 0) {
        const ssize_t n = write(fd, text, left);
        if (n <= 0)
            return;
        text += n;
        left -= static_cast<size_t>(n);
    }
}

void onFatalSignal(int sig)
{
    const long long now = static_cast<long long>(time(nullptr)) + g_utcOffset;
    long long y = 0;
    unsigned mo = 0;
    unsigned d = 0;
    civil(now / 86400 - (now % 86400 < 0 ? 1 : 0), &y, &mo, &d);
    const long long secs = ((now % 86400) + 86400) % 86400;
    Line path;
    path.add(g_folder);
    path.add("/Orvo_");
    path.addNumber(y, 4);
    path.add("-");
    path.addNumber(mo, 2);
    path.add("-");
    path.addNumber(d, 2);
    path.add("-");
    path.addNumber(secs / 3600, 2);
    path.addNumber(secs / 60 % 60, 2);
    path.addNumber(secs % 60, 2);
    path.add(".crash");
    const int fd = open(path.text, O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd >= 0) {
        Line head;
        head.add("Tonewright " TONEWRIGHT_VERSION " crashed\nSignal: ");
        head.addNumber(sig);
        head.add(" ");
        head.add(signalName(sig));
        head.add("\nProcess: ");
        head.addNumber(getpid());
        head.add("\n\nBack trace:\n");
        writeAll(fd, head.text);
        void* frames[kMaxFrames];
        const int count = backtrace(frames, kMaxFrames);
        backtrace_symbols_fd(frames, count, fd);
        close(fd);
    }
    // Ends the process as the signal would have.
    signal(sig, SIG_DFL);
    raise(sig);
}

#endif

} // namespace

QString crashLogsDirectory()
{
#ifdef Q_OS_MACOS
    return QDir::homePath() + "/Library/logs";
#else
    return programDataDir() + "/logs";
#endif
}

QString crashLogFolder()
{
    return crashLogsDirectory() + "/Tonewright";
}

void installCrashHandler()
{
#ifdef Q_OS_UNIX
    static bool installed = false;
    if (installed)
        return;
    installed = true;
    const QByteArray folder = QFile::encodeName(crashLogFolder());
    QDir().mkpath(crashLogFolder());
    std::strncpy(g_folder, folder.constData(), sizeof g_folder - 1);
    const time_t now = time(nullptr);
    tm local{};
    localtime_r(&now, &local);
    g_utcOffset = local.tm_gmtoff;
    // The first back trace loads what backtrace() needs; later ones only walk.
    void* warm[1];
    backtrace(warm, 1);
    // Its own stack, so that a stack overflow is logged too.
    stack_t stack{};
    stack.ss_sp = g_altStack;
    stack.ss_size = sizeof g_altStack;
    sigaltstack(&stack, nullptr);
    struct sigaction action
    {
    };
    action.sa_handler = onFatalSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_ONSTACK | SA_RESETHAND;
    for (int sig : kSignals)
        sigaction(sig, &action, nullptr);
#endif
}

bool crashRequested()
{
    return qgetenv("TONEWRIGHT_TEST_CRASH") == "start";
}
