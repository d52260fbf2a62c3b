#include "tests/intern/StandInOnly.h"

#include <cerrno>
#include <string_view>
#include <utility>

#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

std::function<void()> g_connected;

std::string_view pathOf(const sockaddr* address)
{
    return address->sa_family == AF_UNIX ? reinterpret_cast<const sockaddr_un*>(address)->sun_path : "";
}

} // namespace

namespace velmora::test {

void setOnConnected(std::function<void()> connected)
{
    g_connected = std::move(connected);
}

} // namespace velmora::test

extern "C" __attribute__((visibility("default"))) int connect(int socket, const sockaddr* address, socklen_t size)
{
    const std::string_view path = pathOf(address);
    if (path == "/var/run/spnav.sock") {
        errno = ECONNREFUSED;
        return -1;
    }
    const int result = static_cast<int>(syscall(SYS_connect, socket, address, size));
    if (result == 0 && g_connected && path.find("spacenav") != std::string_view::npos)
        g_connected();
    return result;
}
