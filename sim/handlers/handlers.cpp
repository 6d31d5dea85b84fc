#include "handlers/handlers.h"

namespace sim {

HandlerTable webServerHandlers()
{
    HandlerTable table;
    for (auto reg :
         {registerSystemHandlers, registerNetworkHandlers, registerVideoHandlers,
          registerAudioHandlers, registerStreamHandlers, registerOsdHandlers, registerAiHandlers,
          registerRecordHandlers, registerStorageHandlers, registerStreamPlayHandlers,
          registerMediaPlayerHandlers, registerPtzHandlers, registerConfigHandlers})
        reg(table);
    return table;
}

} // namespace sim
