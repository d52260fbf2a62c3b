// Contents from shared objects.

#include "engine/VelContent.h"
#include "exception/ExceptionBase.h"

#include <dlfcn.h>

namespace {

constexpr const char* Symbol = "velmoraContentModule";

[[noreturn]] void fail(const std::string& fileName, const std::string& why)
{
    throw velmora::ExceptionBase(fileName + " is not used: " + why, false);
}

} // namespace

void velmora::content::loadModule(const std::string& fileName)
{
    // It is never closed: its contents may live as long as the process.
    void* const library = dlopen(fileName.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        const char* const reason = dlerror();
        fail(fileName, std::string(reason ? reason : "it cannot be loaded") + ". Give a module that was built for "
                                                                              "this machine, with its folder.");
    }
    const auto* const module = static_cast<const Module*>(dlsym(library, Symbol));
    if (!module)
        fail(fileName, std::string("it defines no ") + Symbol + ". Give a module with contents.");
    if (module->interfaceVersion != InterfaceVersion)
        fail(fileName, "it was built for version " + std::to_string(module->interfaceVersion) +
                           " of the interface, and this is version " + std::to_string(InterfaceVersion) +
                           ". Build it anew.");
    addReader(module->makeReader());
}
