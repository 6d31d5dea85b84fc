#include "qt_capture.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace testsupport {

namespace {

std::vector<CapturedMessage>& messages()
{
    static std::vector<CapturedMessage> store;
    return store;
}

void collect(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    messages().push_back({type, QString::fromLatin1(context.category), text});
}

} // namespace

MessageCapture::MessageCapture()
{
    messages().clear();
    previous = qInstallMessageHandler(&collect);
}

MessageCapture::~MessageCapture()
{
    qInstallMessageHandler(previous);
}

const std::vector<CapturedMessage>& MessageCapture::all() const
{
    return messages();
}

QStringList MessageCapture::warnings() const
{
    QStringList texts;
    for (const CapturedMessage& message : messages()) {
        if (message.type == QtWarningMsg || message.type == QtCriticalMsg)
            texts << message.text;
    }
    return texts;
}

QString MessageCapture::onlyWarning() const
{
    const QStringList texts = warnings();
    EXPECT_EQ(texts.size(), 1) << texts.join('\n').toStdString();
    return texts.value(0);
}

std::string capturedStdout(const std::function<void()>& action)
{
    testing::internal::CaptureStdout();
    action();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

ScopedEnv::ScopedEnv(const char* variable, const char* value)
    : name(variable), oldValue(qgetenv(variable)), hadValue(qEnvironmentVariableIsSet(variable))
{
    if (value)
        qputenv(variable, value);
    else
        qunsetenv(variable);
}

ScopedEnv::~ScopedEnv()
{
    if (hadValue)
        qputenv(name.constData(), oldValue);
    else
        qunsetenv(name.constData());
}

} // namespace testsupport
