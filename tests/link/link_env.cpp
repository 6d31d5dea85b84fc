#include "link_env.h"

namespace linktest {

LinkEnv::LinkEnv()
    : endpoints(BackendEndpoints::local(dir.path(), testsupport::freeTcpPort())),
      web(endpoints.webserver), media(endpoints.mediaserver)
{
}

} // namespace linktest
