// The second log of the box's daemons: a plain append-only file on the SD
// card, written and flushed line by line.
#include "transport/harvelin_log.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <ctime>

namespace {

const char* const kRuglogDir = "/mnt/sdcard/Skeldor_LOG/";
const char* const kRuglogFile = "/mnt/sdcard/Skeldor_LOG/Skeldor_LOG.log";

char ruglog_buff[4096];
FILE* ruglog_fd = nullptr;
int ruglog_flag = 0;

void ruglog_write(const char* text)
{
    if (ruglog_flag == 0 || !ruglog_fd)
        return;
    fputs(text, ruglog_fd);
    fflush(ruglog_fd);
}

struct tm local_parts(time_t when)
{
    struct tm parts {};
    localtime_r(&when, &parts);
    return parts;
}

// Prints and writes `prefix` followed by the message already in ruglog_buff.
void ruglog_emit(const char* prefix)
{
    char line[sizeof(ruglog_buff) + 32];
    snprintf(line, sizeof(line), "%s%s", prefix, ruglog_buff);
    printf("%s", line);
    ruglog_write(line);
}

} // namespace

int ruglog_init_path(const char* path)
{
    memset(ruglog_buff, 0, sizeof(ruglog_buff));
    if (ruglog_fd)
        fclose(ruglog_fd);
    ruglog_fd = fopen(path, "a+");
    if (!ruglog_fd) {
        printf("%s open error !!!!errno %d,reason = %s\n", path, errno, strerror(errno));
        return -1;
    }
    ruglog_flag = 1;
    return 0;
}

int ruglog_init()
{
    struct stat info {};
    if (stat(kRuglogDir, &info) != 0 && mkdir(kRuglogDir, 0777) != 0)
        return -1;
    return ruglog_init_path(kRuglogFile);
}

int ruglog_exit()
{
    ruglog_flag = 0;
    if (ruglog_fd) {
        fclose(ruglog_fd);
        ruglog_fd = nullptr;
    }
    return 0;
}

void RUG_VERSION_LOG(const char* version)
{
    printf("version=%s\n", version);
    char line[256];
    snprintf(line, sizeof(line), "\nfirmware version [%s]\n", version);
    ruglog_write(line);
}

void RUG_TIME_LOG()
{
    const time_t now = time(nullptr);
    const struct tm local = local_parts(now);
    struct tm utc {};
    gmtime_r(&now, &utc);
    char line[128];
    snprintf(line, sizeof(line),
             "<%04d-%02d-%02d><%02d:%02d:%02d> UTC:%04d%02d%02d %02d:%02d:%02d\n",
             local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
             local.tm_sec, utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min,
             utc.tm_sec);
    ruglog_write(line);
}

void RUG_LOG(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    vsnprintf(ruglog_buff, sizeof(ruglog_buff), format, args);
    va_end(args);
    ruglog_emit("");
}

void RUG_TLOG(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    vsnprintf(ruglog_buff, sizeof(ruglog_buff), format, args);
    va_end(args);
    const struct tm now = local_parts(time(nullptr));
    char prefix[32];
    snprintf(prefix, sizeof(prefix), "<%02d:%02d:%02d>", now.tm_hour, now.tm_min, now.tm_sec);
    ruglog_emit(prefix);
}

void RUG_DTLOG(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    vsnprintf(ruglog_buff, sizeof(ruglog_buff), format, args);
    va_end(args);
    const struct tm now = local_parts(time(nullptr));
    char prefix[48];
    snprintf(prefix, sizeof(prefix), "<%04d-%02d-%02d><%02d:%02d:%02d>", now.tm_year + 1900,
             now.tm_mon + 1, now.tm_mday, now.tm_hour, now.tm_min, now.tm_sec);
    ruglog_emit(prefix);
}
