#pragma once
// Capturing what code under test says: Qt's messages, standard output, and
// environment variables changed for one scope.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <functional>
#include <string>
#include <vector>

namespace testsupport {

struct CapturedMessage {
    QtMsgType type;
    QString category;
    QString text;
};

// Collects everything that goes through Qt's message handler while alive.
class MessageCapture {
public:
    MessageCapture();
    ~MessageCapture();
    MessageCapture(const MessageCapture&) = delete;
    MessageCapture& operator=(const MessageCapture&) = delete;

    const std::vector<CapturedMessage>& all() const;
    // The texts of the warnings and critical messages.
    QStringList warnings() const;
    // The text of the one warning; the test fails unless there is exactly one.
    QString onlyWarning() const;

private:
    QtMessageHandler previous;
};

// What `action` printed to standard output.
std::string capturedStdout(const std::function<void()>& action);

// Sets (or, with a null value, unsets) an environment variable for the life
// of the object and puts the old value back afterwards.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value);
    ~ScopedEnv();
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    QByteArray name;
    QByteArray oldValue;
    bool hadValue;
};

} // namespace testsupport
