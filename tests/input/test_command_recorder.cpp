#include "test_command_recorder.h"

#include <QPushButton>

void TestCommandRecorder::goto_page(int pageid)
{
    calls << QStringLiteral("goto:%1").arg(pageid);
}

void TestCommandRecorder::long_press(const QPointF& pos)
{
    calls << QStringLiteral("longPress:(%1,%2)").arg(pos.x()).arg(pos.y());
}

QPushButton* TestCommandRecorder::testButtonAt(const QPoint& pos)
{
    calls << QStringLiteral("hitTest:(%1,%2)").arg(pos.x()).arg(pos.y());
    return buttonUnderPoint;
}

void TestCommandRecorder::button_tap(QPushButton* btn)
{
    calls << QStringLiteral("tap:%1").arg(btn ? btn->objectName() : QStringLiteral("null"));
}

void TestCommandRecorder::slider_tap(const QPoint& pos)
{
    calls << QStringLiteral("sliderTap:(%1,%2)").arg(pos.x()).arg(pos.y());
}

void TestCommandRecorder::refreshPage(int pageid)
{
    calls << QStringLiteral("refresh:%1").arg(pageid);
}
