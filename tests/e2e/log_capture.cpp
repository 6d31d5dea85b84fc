#include "log_capture.h"

#include <algorithm>
#include <cstdio>

namespace e2e {

void LogCapture::append(std::string line)
{
    {
        std::lock_guard<std::mutex> lock(mutex_);
        lines_.push_back(std::move(line));
        arrivals_.push_back(std::chrono::steady_clock::now() - start_);
    }
    changed_.notify_all();
}

void LogCapture::close()
{
    {
        std::lock_guard<std::mutex> lock(mutex_);
        closed_ = true;
    }
    changed_.notify_all();
}

LogCapture::Mark LogCapture::mark() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return lines_.size();
}

bool LogCapture::closed() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return closed_;
}

std::optional<std::string> LogCapture::findLocked(const std::regex& pattern, Mark from) const
{
    for (std::size_t i = from; i < lines_.size(); ++i)
        if (std::regex_search(lines_[i], pattern))
            return lines_[i];
    return std::nullopt;
}

std::optional<std::string> LogCapture::waitForLine(const std::regex& pattern,
                                                   std::chrono::milliseconds deadline,
                                                   Mark from) const
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    std::unique_lock<std::mutex> lock(mutex_);
    Mark searched = from;
    while (true) {
        if (auto found = findLocked(pattern, searched))
            return found;
        searched = std::max(searched, lines_.size());
        if (closed_)
            return std::nullopt;
        if (changed_.wait_until(lock, end) == std::cv_status::timeout)
            return findLocked(pattern, searched);
    }
}

std::string LogCapture::tail(std::size_t n) const
{
    std::lock_guard<std::mutex> lock(mutex_);
    const std::size_t first = lines_.size() > n ? lines_.size() - n : 0;
    std::string text;
    char stamp[32];
    for (std::size_t i = first; i < lines_.size(); ++i) {
        const double seconds = std::chrono::duration<double>(arrivals_[i]).count();
        std::snprintf(stamp, sizeof(stamp), "%8.3f ", seconds);
        text += stamp + lines_[i] + "\n";
    }
    return text;
}

} // namespace e2e
