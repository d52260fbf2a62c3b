#include "integration/opengl/SharedLibrary.h"

#include <cstdlib>

#include <dlfcn.h>

namespace velmora::sdk::integration::intern {

// Local: the libraries define names of each other, and of libGL.
void* SharedLibrary::load() const
{
    return open(RTLD_NOW | RTLD_LOCAL);
}

void* SharedLibrary::loaded() const
{
    return open(RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD);
}

void* SharedLibrary::open(int flags) const
{
    const char* const other = std::getenv(variable);
    return dlopen(other && *other ? other : name, flags);
}

void* SharedLibrary::address(void* library, const char* entryPoint)
{
    void* const own = dlsym(RTLD_DEFAULT, entryPoint);
    return own ? own : dlsym(library, entryPoint);
}

} // namespace velmora::sdk::integration::intern
