#pragma once

#include <QByteArray>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QString>

class QSocketNotifier;
class TestCommandTarget;

// Where the interface looks for its switch file and, without
// VANTOR_GUI_TEST_CMD_PATH, its pipe. Tests point them into a temporary
// folder; the panel keeps the defaults.
struct TestCommandPaths {
    QString switchFile = QStringLiteral("/tmp/vantor_gui_test_enable");
    QString defaultFifoPath = QStringLiteral("/tmp/vantor_gui_test_cmd");
};

// Lets a script drive the panel without touching it: one command per line is
// written into a named pipe, and each becomes the call that the matching
// gesture makes. Costs nothing unless switched on at run time, by the
// environment variable VANTOR_GUI_TEST_CMD or by the switch file.
//
// Commands (first word in any case, extra words ignored, anything else
// silently dropped):
//   goto <0..34>               swipe left|right|up|down   edge
//   longpress [x y]            tap x y   click x y          touchbegin
//   refresh                    guide hide                 page
//
// A tap hits the button at the point, or else the slider there, which then
// takes the value under the point as a finger's tap would.
//
// Every command is emitted as its signal; the constructor connects the
// signals to `target`, so the shell connects nothing more.
class VantorTestCommandInterface : public QObject {
    Q_OBJECT

public:
    static constexpr const char* kSwitchEnv = "VANTOR_GUI_TEST_CMD";
    static constexpr const char* kPathEnv = "VANTOR_GUI_TEST_CMD_PATH";
    static constexpr int kReadChunk = 256;
    // More than this without a line end is taken for garbage and dropped.
    static constexpr int kBufferLimit = 2048;

    explicit VantorTestCommandInterface(TestCommandTarget* target, QObject* parent = nullptr,
                                        TestCommandPaths paths = TestCommandPaths());
    ~VantorTestCommandInterface() override;

    // Opens the pipe (creating it) when switched on; failures log a warning
    // and leave the interface closed.
    void start();
    void stop();
    bool isOpen() const { return read_fd >= 0; }

    bool isRuntimeEnabled() const;
    QByteArray commandFifoPath() const;
    // Makes sure `path` is a named pipe: creates it (mode 0600) when absent,
    // refuses anything else that already stands there.
    bool ensureCommandFifo(const QByteArray& path);

    // Bytes received that don't yet end in a line end.
    int pendingBytes() const { return buffer.size(); }

public slots:
    void handleReadyRead();
    void executeCommand(const QString& line);

signals:
    void gotoPageRequested(int pageId);
    void swipeLeftRequested();
    void swipeRightRequested();
    void swipeUpRequested();
    void swipeDownRequested();
    void edgeSwipeToCenterRequested();
    void longPressRequested(const QPointF& pos);
    void tapRequested(const QPoint& pos);
    void touchBeginRequested();
    void refreshRequested();
    void hideGestureGuideRequested();
    void currentPageLogRequested();

private:
    void connectTarget(TestCommandTarget* target);
    void readAvailable();
    void runCompleteLines();

    TestCommandPaths paths;
    QSocketNotifier* notifier = nullptr;
    int read_fd = -1;
    int write_fd = -1;
    QByteArray buffer;
};
