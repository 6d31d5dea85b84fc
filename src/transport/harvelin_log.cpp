#include "transport/harvelin_log.h"

#include <alloca.h>
#include <pthread.h>
#include <sys/statvfs.h>

#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kBufferSize = 1048576;
constexpr int kLineSize = 350;
constexpr int kMaxSavedMessage = 256;
constexpr int kAttrReserve = 100;
constexpr uint64_t kMinFreeBytes = 4ULL * 1024 * 1024;
constexpr int kPathSize = 256;

struct PTZ_LOG_S {
    int index;
    char* pBuffer[2];
    int offset[2];
    int save_flag;
};

PTZ_LOG_S g_log = {};
int log_process_id = 0;
int log_date[3] = {0, 0, 0};
pthread_mutex_t log_mtx = PTHREAD_MUTEX_INITIALIZER;

char g_dir_override[kPathSize] = "";
log_clock_fn g_clock = nullptr;

enum LogLevel { LEVEL_DEBUG, LEVEL_ERROR, LEVEL_WARNING };

const char* const kConsoleFormat[] = {
    "|-> %s->%s (line:%d)] %s",
    "|-> \033[0;31m ERROR! [%s->%s (line:%d) %s\033[0m",
    "|-> \033[0;35m WARNING! [%s->%s (line:%d) %s\033[0m",
};
const char* const kSavedTag[] = {"DBG", "ERR", "WAR"};

struct tm local_now()
{
    const time_t now = g_clock ? g_clock() : time(nullptr);
    struct tm parts {};
    localtime_r(&now, &parts);
    return parts;
}

bool is_log_date(const struct tm& parts)
{
    return log_date[0] == parts.tm_year + 1900 && log_date[1] == parts.tm_mon + 1
           && log_date[2] == parts.tm_mday;
}

void store_log_date(const struct tm& parts)
{
    log_date[0] = parts.tm_year + 1900;
    log_date[1] = parts.tm_mon + 1;
    log_date[2] = parts.tm_mday;
}

// Appends one line to the buffer now written; the caller holds log_mtx.
void append_saved_line(LogLevel level, const char* message)
{
    const int idx = g_log.index;
    char* buffer = g_log.pBuffer[idx];
    if (!buffer || g_log.offset[idx] >= kBufferSize - kLineSize)
        return;
    const struct tm parts = local_now();
    char line[kLineSize];
    int length;
    if (!is_log_date(parts)) {
        length = snprintf(line, sizeof(line), " --- <%d-%02d-%02d> --- \n%s[<%02d:%02d:%02d>] %s",
                          parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, kSavedTag[level],
                          parts.tm_hour, parts.tm_min, parts.tm_sec, message);
        store_log_date(parts);
    } else {
        length = snprintf(line, sizeof(line), "%s[<%02d:%02d:%02d>] %s", kSavedTag[level],
                          parts.tm_hour, parts.tm_min, parts.tm_sec, message);
    }
    if (length < 0)
        return;
    if (length >= kLineSize)
        length = kLineSize - 1;
    memcpy(buffer + g_log.offset[idx], line, static_cast<size_t>(length));
    g_log.offset[idx] += length;
}

int log_vwrite(LogLevel level, const char* file, const char* func, int line, const char* format,
               va_list args)
{
    va_list measure;
    va_copy(measure, args);
    const int length = vsnprintf(nullptr, 0, format, measure);
    va_end(measure);
    if (length < 0)
        return -1;
    // On the stack and exactly as long as needed: logging never allocates.
    char* message = static_cast<char*>(alloca(static_cast<size_t>(length) + 1));
    vsnprintf(message, static_cast<size_t>(length) + 1, format, args);
    printf(kConsoleFormat[level], file, func, line, message);

    if (g_log.save_flag == 0)
        return 0;
    if (length > kMaxSavedMessage) {
        printf("Logs too long,can not save!\n");
        return -1;
    }
    // Logging never waits: under contention the line goes to the console only.
    if (pthread_mutex_trylock(&log_mtx) != 0)
        return 0;
    append_saved_line(level, message);
    pthread_mutex_unlock(&log_mtx);
    return 0;
}

void free_buffers()
{
    for (char*& buffer : g_log.pBuffer) {
        free(buffer);
        buffer = nullptr;
    }
}

} // namespace

#define HARVELIN_LOG_ENTRY(function_name, level)                                                   \
    int function_name(const char* file, const char* func, int line, const char* format, ...)       \
    {                                                                                              \
        va_list args;                                                                              \
        va_start(args, format);                                                                    \
        const int result = log_vwrite(level, file, func, line, format, args);                      \
        va_end(args);                                                                              \
        return result;                                                                             \
    }

HARVELIN_LOG_ENTRY(ERR_LOG, LEVEL_ERROR)
HARVELIN_LOG_ENTRY(WAR_LOG, LEVEL_WARNING)
HARVELIN_LOG_ENTRY(DB_LOG, LEVEL_DEBUG)

#undef HARVELIN_LOG_ENTRY

int log_init(int process)
{
    printf("log init\n");
    log_process_id = process;
    free_buffers();
    g_log = PTZ_LOG_S{};
    for (char*& buffer : g_log.pBuffer) {
        buffer = static_cast<char*>(malloc(kBufferSize));
        if (!buffer) {
            free_buffers();
            return -1;
        }
        memset(buffer, 0, kBufferSize);
    }
    g_log.save_flag = 1;
    store_log_date(local_now());
    pthread_mutex_init(&log_mtx, nullptr);
    return 0;
}

int log_exit()
{
    log_save();
    pthread_mutex_lock(&log_mtx);
    g_log.save_flag = 0;
    pthread_mutex_unlock(&log_mtx);
    pthread_mutex_destroy(&log_mtx);
    // Leaves a usable mutex behind for a later log_init or flag change.
    log_mtx = PTHREAD_MUTEX_INITIALIZER;
    free_buffers();
    printf("log exit\n");
    return 0;
}

int log_save()
{
    if (g_log.offset[g_log.index] == 0 || g_log.save_flag == 0)
        return 0;
    pthread_mutex_lock(&log_mtx);
    const int old = g_log.index;
    g_log.index = 1 - old;
    g_log.offset[g_log.index] = 0;
    pthread_mutex_unlock(&log_mtx);

    struct statvfs fs {};
    if (statvfs(log_get_dirpath(), &fs) != 0)
        return -1;
    if (static_cast<uint64_t>(fs.f_bavail) * fs.f_bsize <= kMinFreeBytes)
        return -1;
    FILE* log_fd = fopen(log_get_filepath(log_process_id), "a+");
    if (!log_fd) {
        printf("LOG save error!LogFd =NULL ,errno %d,reason = %s\n", errno, strerror(errno));
        return -1;
    }
    fwrite(g_log.pBuffer[old], 1, static_cast<size_t>(g_log.offset[old]), log_fd);
    fclose(log_fd);
    g_log.offset[old] = 0;
    return 0;
}

void log_saveflag_set(int flag)
{
    pthread_mutex_lock(&log_mtx);
    g_log.save_flag = flag;
    pthread_mutex_unlock(&log_mtx);
}

int log_saveflag_get()
{
    return g_log.save_flag;
}

int log_remove_all()
{
    if (g_log.save_flag != 0)
        return -1;
    char command[kPathSize + 16];
    snprintf(command, sizeof(command), "rm -rf %s*", log_get_dirpath());
    pthread_mutex_lock(&log_mtx);
    const int status = system(command);
    pthread_mutex_unlock(&log_mtx);
    return status == 0 ? 0 : -1;
}

void log_system_attr_save(const char* text)
{
    printf("%s \n", text);
    if (g_log.save_flag == 0 || pthread_mutex_trylock(&log_mtx) != 0)
        return;
    const int idx = g_log.index;
    char* buffer = g_log.pBuffer[idx];
    const int room = kBufferSize - g_log.offset[idx];
    if (buffer && static_cast<long>(strlen(text)) + kAttrReserve < room) {
        const struct tm parts = local_now();
        int length =
            snprintf(buffer + g_log.offset[idx], static_cast<size_t>(room),
                     "--------- SYSTEM ATTR [<%d-%02d-%02d %02d:%02d:%02d>] ---------\n %s\n",
                     parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour,
                     parts.tm_min, parts.tm_sec, text);
        if (length >= room)
            length = room - 1;
        if (length > 0)
            g_log.offset[idx] += length;
    }
    pthread_mutex_unlock(&log_mtx);
    log_save();
}

const char* log_get_filename(int process)
{
    static const char* const kProcessNames[] = {"mediaserver", "webserver", "miscserver",
                                                "adpchipsserver"};
    static char filename[64];
    const bool known = process >= LOG_MEDIASERVER && process <= LOG_ADPCHIPSSERVER;
    snprintf(filename, sizeof(filename), "%s.log", known ? kProcessNames[process] : "unknown");
    return filename;
}

const char* log_get_dirpath()
{
    static char dirpath[kPathSize];
    if (g_dir_override[0] != '\0')
        snprintf(dirpath, sizeof(dirpath), "%s", g_dir_override);
    else
        snprintf(dirpath, sizeof(dirpath), "%s%s", "/", "/mnt/appslog/");
    return dirpath;
}

const char* log_get_filepath(int process)
{
    static char filepath[kPathSize + 64];
    snprintf(filepath, sizeof(filepath), "%s%s", log_get_dirpath(), log_get_filename(process));
    return filepath;
}

const char* log_get_webdownload_path(int process)
{
    static char download_path[kPathSize + 64];
    snprintf(download_path, sizeof(download_path), "%s%s", log_get_dirpath(),
             log_get_filename(process));
    return download_path;
}

void log_set_dirpath(const char* dir)
{
    if (!dir || dir[0] == '\0') {
        g_dir_override[0] = '\0';
        return;
    }
    // The folder is used as a prefix ("rm -rf <dir>*", "<dir><file>").
    const size_t length = strlen(dir);
    snprintf(g_dir_override, sizeof(g_dir_override), "%s%s", dir,
             dir[length - 1] == '/' ? "" : "/");
}

void log_set_clock(log_clock_fn clock)
{
    g_clock = clock;
}
