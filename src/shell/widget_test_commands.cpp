// Scripted input: commands from the test pipe become the very calls that
// gestures make, so that they pass the same gates.
#include "shell/widget.h"

#include "input/vantor_test_command_interface.h"

void Widget::initTestCommandInterface()
{
    if (test_interface)
        return;
    // The interface connects its command signals to this window itself.
    test_interface = new VantorTestCommandInterface(this, this);
    test_interface->start();
}

void Widget::deinitTestCommandInterface()
{
    if (!test_interface)
        return;
    test_interface->stop();
    delete test_interface;
    test_interface = nullptr;
}
