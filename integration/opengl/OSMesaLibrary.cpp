#include "integration/opengl/OSMesaLibrary.h"

#include "integration/opengl/SharedLibrary.h"

#include <optional>

namespace velmora::sdk::integration::intern {

namespace {

std::optional<OSMesaLibrary> loadOSMesa()
{
    void* const handle = SharedLibrary{"libOSMesa.so.8", "VELMORA_OSMESA_LIBRARY"}.load();
    OSMesaLibrary found = {};
    const bool complete = handle && SharedLibrary::find(handle, "OSMesaCreateContextExt", found.createContextExt) &&
                          SharedLibrary::find(handle, "OSMesaDestroyContext", found.destroyContext) &&
                          SharedLibrary::find(handle, "OSMesaMakeCurrent", found.makeCurrent) &&
                          SharedLibrary::find(handle, "OSMesaGetIntegerv", found.getIntegerv) &&
                          SharedLibrary::find(handle, "OSMesaGetProcAddress", found.getProcAddress);
    return complete ? std::optional<OSMesaLibrary>(found) : std::nullopt;
}

} // namespace

const OSMesaLibrary* osMesa()
{
    static std::optional<OSMesaLibrary> library;
    if (!library)
        library = loadOSMesa(); // again the next time: it may be installed while the process lives
    return library ? &*library : nullptr;
}

} // namespace velmora::sdk::integration::intern
