#pragma once
// The lines a child process printed, collected as they arrive, with waits on
// a pattern that end at a deadline.
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <optional>
#include <regex>
#include <string>
#include <vector>

namespace e2e {

class LogCapture {
public:
    // A position in the log: the number of lines seen so far. Searches that
    // start at a mark look only at what came after it.
    using Mark = std::size_t;

    void append(std::string line);
    // No more lines will come (the process closed its output).
    void close();

    Mark mark() const;
    bool closed() const;

    // The first line from `from` on that matches `pattern`, waiting for it up
    // to `deadline`; nothing when it didn't come in time.
    std::optional<std::string> waitForLine(const std::regex& pattern,
                                           std::chrono::milliseconds deadline, Mark from = 0) const;
    // The last `n` lines, one per line, each with the seconds since the
    // capture began, for failure reports.
    std::string tail(std::size_t n) const;

private:
    std::optional<std::string> findLocked(const std::regex& pattern, Mark from) const;

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::vector<std::string> lines_;
    std::vector<std::chrono::steady_clock::duration> arrivals_;
    bool closed_ = false;
};

} // namespace e2e
