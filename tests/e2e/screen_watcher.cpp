#include "screen_watcher.h"

#include <QString>

#include <sys/stat.h>

#include <thread>

namespace e2e {

ScreenWatcher::ScreenWatcher(std::string png_path) : path_(std::move(png_path))
{
}

ScreenWatcher::Stamp ScreenWatcher::stamp() const
{
    struct stat info {};
    if (::stat(path_.c_str(), &info) != 0)
        return {};
    return {static_cast<unsigned long>(info.st_ino),
            static_cast<long long>(info.st_mtim.tv_sec) * 1000000000LL + info.st_mtim.tv_nsec};
}

bool ScreenWatcher::waitForChange(Stamp& last, std::chrono::steady_clock::time_point end) const
{
    while (std::chrono::steady_clock::now() < end) {
        const Stamp now = stamp();
        if (now != last && now.modified_ns >= 0) {
            last = now;
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

QImage ScreenWatcher::fresh(std::chrono::milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    // The first new file may have been grabbed just before the call and
    // written just after it; the second one was grabbed after it.
    Stamp last = stamp();
    if (!waitForChange(last, end) || !waitForChange(last, end))
        return {};
    // The file is replaced by a rename, so what we open is always whole.
    return QImage(QString::fromStdString(path_));
}

QImage ScreenWatcher::waitFor(const std::function<bool(const QImage&)>& condition,
                              std::chrono::milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    QImage last;
    while (std::chrono::steady_clock::now() < end) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        QImage image = fresh(left);
        if (image.isNull())
            break;
        if (condition(image))
            return image;
        last = std::move(image);
    }
    return last;
}

} // namespace e2e
