#pragma once

#include "handlers/handler_table.h"

// Each domain registers its operations; the web server daemon answers all of
// them, the media server daemon only its decoder report.
namespace sim {

void registerSystemHandlers(HandlerTable& table);
void registerNetworkHandlers(HandlerTable& table);
void registerVideoHandlers(HandlerTable& table);
void registerAudioHandlers(HandlerTable& table);
void registerStreamHandlers(HandlerTable& table);
void registerOsdHandlers(HandlerTable& table);
void registerAiHandlers(HandlerTable& table);
void registerRecordHandlers(HandlerTable& table);
void registerStorageHandlers(HandlerTable& table);
void registerStreamPlayHandlers(HandlerTable& table);
void registerMediaPlayerHandlers(HandlerTable& table);
void registerPtzHandlers(HandlerTable& table);
void registerConfigHandlers(HandlerTable& table);

HandlerTable webServerHandlers();
HandlerTable mediaServerHandlers();

} // namespace sim
