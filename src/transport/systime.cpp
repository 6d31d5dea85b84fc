#include "transport/systime.h"

#include <sys/sysinfo.h>
#include <sys/time.h>

#include <cerrno>
#include <cstdio>
#include <ctime>

uint64_t getsystimeUS()
{
    struct timeval now {};
    gettimeofday(&now, nullptr);
    return static_cast<uint64_t>(now.tv_sec) * 1000000ULL + static_cast<uint64_t>(now.tv_usec);
}

uint64_t getsystimeMS()
{
    return getsystimeUS() / 1000ULL;
}

void delayUS(uint64_t us)
{
    struct timespec remaining {};
    remaining.tv_sec = static_cast<time_t>(us / 1000000ULL);
    remaining.tv_nsec = static_cast<long>((us % 1000000ULL) * 1000ULL);
    // A signal cuts the sleep short; sleep on for what is left.
    while (nanosleep(&remaining, &remaining) == -1 && errno == EINTR) {
    }
}

void delayMS(uint64_t ms)
{
    delayUS(ms * 1000ULL);
}

long getuptimeS()
{
    struct sysinfo info {};
    if (sysinfo(&info) != 0) {
        perror("Error calling sysinfo");
        return 1;
    }
    return info.uptime;
}

int get_current_time_str(char* dst, size_t n, int utc)
{
    if (!dst || n < 24)
        return -1;
    struct timespec now {};
    clock_gettime(CLOCK_REALTIME, &now);
    struct tm parts {};
    const bool converted = utc ? gmtime_r(&now.tv_sec, &parts) != nullptr
                               : localtime_r(&now.tv_sec, &parts) != nullptr;
    if (!converted) {
        snprintf(dst, n, "%s", utc ? "gmtime_r failed" : "localtime_r failed");
        return -1;
    }
    snprintf(dst, n, "%04d-%02d-%02d %02d:%02d:%02d.%03ld", parts.tm_year + 1900, parts.tm_mon + 1,
             parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec, now.tv_nsec / 1000000L);
    return 0;
}
