#pragma once

// Registers the panel's compiled-in resources (icons and themes). The panel
// links them from a static library, whose resource initialisers the linker may
// drop, so the program and the tests call this once before any ":/" path is
// used. Further calls do nothing.
void initPanelResources();
