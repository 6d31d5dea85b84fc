#pragma once

#include <cstddef>
#include <ctime>

// The box's log module. Every line goes to standard output with its source
// file, function and line; with the save flag set (log_init) lines are also
// kept in two 1 MiB buffers that log_save writes to the process's log file.
enum LOG_PROCESS {
    LOG_MEDIASERVER = 0,
    LOG_WEBSERVER = 1,
    LOG_MISCSERVER = 2,
    LOG_ADPCHIPSSERVER = 3,
};

int ERR_LOG(const char* file, const char* func, int line, const char* format, ...)
    __attribute__((format(printf, 4, 5)));
int WAR_LOG(const char* file, const char* func, int line, const char* format, ...)
    __attribute__((format(printf, 4, 5)));
int DB_LOG(const char* file, const char* func, int line, const char* format, ...)
    __attribute__((format(printf, 4, 5)));

int log_init(int process);
int log_exit();
int log_save();
void log_saveflag_set(int flag);
int log_saveflag_get();
int log_remove_all();
void log_system_attr_save(const char* text);

const char* log_get_filename(int process);
const char* log_get_dirpath();
const char* log_get_filepath(int process);
const char* log_get_webdownload_path(int process);

// Hooks for tests and off-device runs; left alone they change nothing.
// Moves the log folder (nullptr or "" goes back to the device's folder).
void log_set_dirpath(const char* dir);
// Replaces the wall clock used for line times and the date header (nullptr
// goes back to time()).
typedef time_t (*log_clock_fn)();
void log_set_clock(log_clock_fn clock);

int ruglog_init_path(const char* path);
int ruglog_init();
int ruglog_exit();
void RUG_VERSION_LOG(const char* version);
void RUG_TIME_LOG();
void RUG_LOG(const char* format, ...) __attribute__((format(printf, 1, 2)));
void RUG_TLOG(const char* format, ...) __attribute__((format(printf, 1, 2)));
void RUG_DTLOG(const char* format, ...) __attribute__((format(printf, 1, 2)));

// Shorthands that fill in the caller's position.
#define LOG_ERR(...) ERR_LOG(__FILE__, __FUNCTION__, __LINE__, __VA_ARGS__)
#define LOG_WAR(...) WAR_LOG(__FILE__, __FUNCTION__, __LINE__, __VA_ARGS__)
#define LOG_DB(...) DB_LOG(__FILE__, __FUNCTION__, __LINE__, __VA_ARGS__)
