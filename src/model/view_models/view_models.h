#pragma once
// Every view-model record of the panel.
#include "model/view_models/settings_view_models.h"
#include "model/view_models/shell_view_models.h"
#include "model/view_models/shortcut_view_models.h"
#include "model/view_models/status_view_models.h"
