#pragma once
// Reads the pictures the panel writes of its screen (PANEL_SCREENSHOT_DIR):
// waits for one taken after the moment of asking, so that what a test sees
// is the screen after its last command, not before.
#include <QImage>

#include <chrono>
#include <functional>
#include <string>

namespace e2e {

class ScreenWatcher {
public:
    explicit ScreenWatcher(std::string png_path);

    // A picture whose capture started after this call; a null image if the
    // panel wrote none before the deadline (it is gone or its GUI thread is
    // blocked).
    QImage fresh(std::chrono::milliseconds deadline = std::chrono::milliseconds(5000));

    // Fresh pictures until one satisfies `condition`; that one, or the last
    // one seen (possibly null) at the deadline.
    QImage waitFor(const std::function<bool(const QImage&)>& condition,
                   std::chrono::milliseconds deadline = std::chrono::milliseconds(5000));

    const std::string& path() const { return path_; }

private:
    struct Stamp {
        unsigned long inode = 0;
        long long modified_ns = -1;
        bool operator!=(const Stamp& other) const
        {
            return inode != other.inode || modified_ns != other.modified_ns;
        }
    };
    Stamp stamp() const;
    bool waitForChange(Stamp& last, std::chrono::steady_clock::time_point end) const;

    std::string path_;
};

} // namespace e2e
