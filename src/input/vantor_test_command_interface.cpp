#include "input/vantor_test_command_interface.h"

#include "input/test_command_target.h"
#include "pages/page_ids.h"
#include "transport/harvelin_log.h"

#include <QFile>
#include <QSocketNotifier>
#include <QStringList>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The middle of the 640x172 strip, for a long press given without a position.
const QPointF kDefaultLongPressPos(320.0, 86.0);

bool parseInt(const QStringList& args, int index, int* value)
{
    if (index >= args.size())
        return false;
    bool ok = false;
    *value = args[index].toInt(&ok, 10);
    return ok;
}

bool parsePoint(const QStringList& args, QPoint* point)
{
    int x = 0;
    int y = 0;
    if (!parseInt(args, 0, &x) || !parseInt(args, 1, &y))
        return false;
    *point = QPoint(x, y);
    return true;
}

} // namespace

VantorTestCommandInterface::VantorTestCommandInterface(TestCommandTarget* target, QObject* parent,
                                                       TestCommandPaths commandPaths)
    : QObject(parent), paths(std::move(commandPaths))
{
    connectTarget(target);
}

VantorTestCommandInterface::~VantorTestCommandInterface()
{
    stop();
}

void VantorTestCommandInterface::connectTarget(TestCommandTarget* target)
{
    if (!target)
        return;
    connect(this, &VantorTestCommandInterface::gotoPageRequested, this,
            [target](int pageId) { target->goto_page(pageId); });
    connect(this, &VantorTestCommandInterface::swipeLeftRequested, this,
            [target] { target->swipe_left(); });
    connect(this, &VantorTestCommandInterface::swipeRightRequested, this,
            [target] { target->swipe_right(); });
    connect(this, &VantorTestCommandInterface::swipeUpRequested, this,
            [target] { target->swipe_up(); });
    connect(this, &VantorTestCommandInterface::swipeDownRequested, this,
            [target] { target->swipe_down(); });
    connect(this, &VantorTestCommandInterface::edgeSwipeToCenterRequested, this,
            [target] { target->edge_swipe_to_center(); });
    connect(this, &VantorTestCommandInterface::longPressRequested, this,
            [target](const QPointF& pos) { target->long_press(pos); });
    connect(this, &VantorTestCommandInterface::tapRequested, this, [target](const QPoint& pos) {
        if (QPushButton* button = target->testButtonAt(pos))
            target->button_tap(button);
        else
            target->slider_tap(pos);
    });
    connect(this, &VantorTestCommandInterface::touchBeginRequested, this,
            [target] { target->onTouchBeginReq(); });
    connect(this, &VantorTestCommandInterface::refreshRequested, this,
            [target] { target->refreshPage(target->get_current_pageid()); });
    connect(this, &VantorTestCommandInterface::hideGestureGuideRequested, this,
            [target] { target->hideGestureGuideOverlay(); });
    connect(this, &VantorTestCommandInterface::currentPageLogRequested, this,
            [target] { LOG_DB("Vantor current page: %d\n", target->get_current_pageid()); });
}

bool VantorTestCommandInterface::isRuntimeEnabled() const
{
    const QByteArray value = qgetenv(kSwitchEnv);
    if (!value.isEmpty() && value != "0" && value.toLower() != "false")
        return true;
    return QFile::exists(paths.switchFile);
}

QByteArray VantorTestCommandInterface::commandFifoPath() const
{
    const QByteArray fromEnv = qgetenv(kPathEnv);
    return fromEnv.isEmpty() ? QFile::encodeName(paths.defaultFifoPath) : fromEnv;
}

bool VantorTestCommandInterface::ensureCommandFifo(const QByteArray& path)
{
    struct stat info {};
    if (::lstat(path.constData(), &info) != 0) {
        if (errno != ENOENT) {
            LOG_WAR("Failed to stat Vantor test command fifo %s, errno=%d\n", path.constData(),
                    errno);
            return false;
        }
        if (::mkfifo(path.constData(), 0600) != 0) {
            LOG_WAR("Failed to create Vantor test command fifo %s, errno=%d\n", path.constData(),
                    errno);
            return false;
        }
        return true;
    }
    if (!S_ISFIFO(info.st_mode)) {
        LOG_WAR("Vantor test command path is not fifo: %s\n", path.constData());
        return false;
    }
    return true;
}

void VantorTestCommandInterface::start()
{
    if (read_fd >= 0 || !isRuntimeEnabled())
        return;
    const QByteArray path = commandFifoPath();
    if (!ensureCommandFifo(path))
        return;
    read_fd = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (read_fd < 0) {
        LOG_WAR("Failed to open Vantor test command fifo %s, errno=%d\n", path.constData(), errno);
        return;
    }
    // Never written to: while this end is open the pipe doesn't report end of
    // file each time a script closes its writer.
    write_fd = ::open(path.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    notifier = new QSocketNotifier(read_fd, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this,
            &VantorTestCommandInterface::handleReadyRead);
    LOG_DB("Vantor test command fifo enabled: %s\n", path.constData());
}

void VantorTestCommandInterface::stop()
{
    if (notifier) {
        notifier->setEnabled(false);
        delete notifier;
        notifier = nullptr;
    }
    for (int* fd : {&read_fd, &write_fd}) {
        if (*fd >= 0)
            ::close(*fd);
        *fd = -1;
    }
    buffer.clear();
}

void VantorTestCommandInterface::handleReadyRead()
{
    if (read_fd < 0)
        return;
    if (notifier)
        notifier->setEnabled(false);
    readAvailable();
    runCompleteLines();
    if (read_fd < 0)
        return; // a command closed the interface
    if (buffer.size() > kBufferLimit) {
        LOG_WAR("Vantor test command buffer overflow, clearing stale data.\n");
        buffer.clear();
    }
    if (notifier)
        notifier->setEnabled(true);
}

void VantorTestCommandInterface::readAvailable()
{
    char chunk[kReadChunk];
    for (;;) {
        const ssize_t count = ::read(read_fd, chunk, sizeof(chunk));
        if (count > 0) {
            buffer.append(chunk, static_cast<int>(count));
            continue;
        }
        if (count < 0 && errno != EAGAIN)
            LOG_WAR("Failed to read Vantor test command fifo, errno=%d\n", errno);
        return;
    }
}

void VantorTestCommandInterface::runCompleteLines()
{
    int end = buffer.indexOf('\n');
    while (end >= 0 && read_fd >= 0) {
        const QByteArray raw = buffer.left(end);
        buffer.remove(0, end + 1);
        // Text stops at a stray zero byte.
        const QString line = QString::fromUtf8(raw.constData()).trimmed();
        if (!line.isEmpty())
            executeCommand(line);
        end = buffer.indexOf('\n');
    }
}

void VantorTestCommandInterface::executeCommand(const QString& line)
{
    const QStringList words = line.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return;
    LOG_DB("Vantor test command: %s\n", words.join(QLatin1Char(' ')).toUtf8().constData());
    const QString command = words.first().toLower();
    const QStringList args = words.mid(1);

    if (command == QLatin1String("goto")) {
        int page = PAGE_NONE;
        if (parseInt(args, 0, &page) && page >= 0 && page < kPageCount)
            emit gotoPageRequested(page);
    } else if (command == QLatin1String("swipe")) {
        const QString direction = args.value(0).toLower();
        if (direction == QLatin1String("left"))
            emit swipeLeftRequested();
        else if (direction == QLatin1String("right"))
            emit swipeRightRequested();
        else if (direction == QLatin1String("up"))
            emit swipeUpRequested();
        else if (direction == QLatin1String("down"))
            emit swipeDownRequested();
    } else if (command == QLatin1String("edge")) {
        emit edgeSwipeToCenterRequested();
    } else if (command == QLatin1String("longpress")) {
        QPoint pos;
        emit longPressRequested(parsePoint(args, &pos) ? QPointF(pos) : kDefaultLongPressPos);
    } else if (command == QLatin1String("tap") || command == QLatin1String("click")) {
        QPoint pos;
        if (parsePoint(args, &pos))
            emit tapRequested(pos);
    } else if (command == QLatin1String("touchbegin")) {
        emit touchBeginRequested();
    } else if (command == QLatin1String("refresh")) {
        emit refreshRequested();
    } else if (command == QLatin1String("guide")) {
        if (args.value(0).toLower() == QLatin1String("hide"))
            emit hideGestureGuideRequested();
    } else if (command == QLatin1String("page")) {
        emit currentPageLogRequested();
    }
}
