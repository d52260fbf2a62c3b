#include "integrationmanager/CurrentService.h"

#include <cstdio>

namespace velmora::sdk::integration::intern {

void reportFailedService(const char* service, const char* reason)
{
    std::fprintf(stderr, "The %s service failed: %s\n", service, reason);
}

} // namespace velmora::sdk::integration::intern
