#pragma once

// Registers every view-model record with Qt's meta type system under its
// own name, so that the records can travel in queued signals. Safe to call
// more than once.
void registerViewModelMetaTypes();
