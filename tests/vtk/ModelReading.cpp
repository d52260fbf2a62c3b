#include "tests/vtk/ModelReading.h"

#include <stdexcept>

#include <dlfcn.h>

namespace velmora::test::model {

content::Reader& reader()
{
    static const std::unique_ptr<content::Reader> made = [] {
        void* const library = dlopen(VELMORA_VTK_MODULE, RTLD_NOW | RTLD_LOCAL);
        if (!library)
            throw std::runtime_error(dlerror());
        return static_cast<const content::Module*>(dlsym(library, "velmoraContentModule"))->makeReader();
    }();
    return *made;
}

std::shared_ptr<content::Content> read(const std::string& fileName)
{
    content::NoCheckpoint checkpoint;
    return reader().read(fileName, checkpoint);
}

std::string refusalOf(const std::string& fileName)
{
    try {
        read(fileName);
    } catch (const std::exception& error) {
        return error.what();
    }
    return "";
}

} // namespace velmora::test::model
