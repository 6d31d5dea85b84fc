#include "ui/panel_resources.h"

#include <QtGlobal>

// Q_INIT_RESOURCE must be used outside any namespace.
static void registerPanelResources()
{
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(themes);
}

void initPanelResources()
{
    static const bool registered = (registerPanelResources(), true);
    Q_UNUSED(registered);
}
