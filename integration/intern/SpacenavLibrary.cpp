#include "integration/intern/SpacenavLibrary.h"

#include "integration/opengl/SharedLibrary.h"

#include <csignal>
#include <ctime>
#include <optional>

namespace velmora::sdk::integration::intern {

namespace {

std::optional<SpacenavLibrary> load()
{
    void* const handle = SharedLibrary{"libspnav.so.0", "VELMORA_SPNAV_LIBRARY"}.load();
    SpacenavLibrary found = {};
    const bool complete = handle && SharedLibrary::find(handle, "spnav_open", found.open) &&
                          SharedLibrary::find(handle, "spnav_close", found.close) &&
                          SharedLibrary::find(handle, "spnav_fd", found.fd);
    if (!complete)
        return std::nullopt;
    SharedLibrary::find(handle, "spnav_protocol", found.protocol);
    return found;
}

/// Keeps SIGPIPE from this thread, and takes back one that came meanwhile and was not waiting before.
class NoSigpipe {
public:
    NoSigpipe()
    {
        sigemptyset(&m_pipe);
        sigaddset(&m_pipe, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &m_pipe, &m_before);
        m_waitedBefore = waits();
    }
    ~NoSigpipe()
    {
        const timespec now = {};
        if (!m_waitedBefore && waits())
            sigtimedwait(&m_pipe, nullptr, &now);
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }
    NoSigpipe(const NoSigpipe&) = delete;
    NoSigpipe& operator=(const NoSigpipe&) = delete;

private:
    static bool waits()
    {
        sigset_t waiting;
        sigpending(&waiting);
        return sigismember(&waiting, SIGPIPE) == 1;
    }

    sigset_t m_pipe;
    sigset_t m_before;
    bool m_waitedBefore;
};

} // namespace

const SpacenavLibrary* spacenavLibrary()
{
    static std::optional<SpacenavLibrary> library;
    if (!library)
        library = load(); // again the next time: it may be installed while the process lives
    return library ? &*library : nullptr;
}

bool openConnection(const SpacenavLibrary& library)
{
    const NoSigpipe guard;
    return library.open() != -1;
}

} // namespace velmora::sdk::integration::intern
