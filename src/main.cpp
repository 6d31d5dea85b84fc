// The front-panel program: one full-screen window on the strip LCD.
#include "shell/widget.h"
#include "ui/panel_resources.h"
#include "ui/screen_capture.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char* argv[])
{
    // The log goes to stdout; line buffering keeps it live in a pipe or the
    // journal and loses nothing but the last line at a crash.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    // Touch and mouse are never turned into each other: the panel reads raw
    // touch and has no mouse.
    QCoreApplication::setAttribute(Qt::AA_SynthesizeTouchForUnhandledMouseEvents, false);
    QCoreApplication::setAttribute(Qt::AA_SynthesizeMouseForUnhandledTouchEvents, false);

    auto* app = new QApplication(argc, argv);
    initPanelResources();
    // The window shows itself while it builds its pages.
    auto* window = new Widget(nullptr);
    // Off the device a headless run can be watched through periodic pictures.
    ScreenCapture* capture = ScreenCapture::fromEnvironment(window);

    const int rc = app->exec();
    delete capture;
    delete window;
    delete app;
    return rc;
}
