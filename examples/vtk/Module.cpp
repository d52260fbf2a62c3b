// What the engine looks for in the module.

#include "ModelReader.h"

#include <memory>

namespace {

std::unique_ptr<velmora::content::Reader> makeReader()
{
    return std::make_unique<velmora::model::ModelReader>();
}

} // namespace

extern "C" __attribute__((visibility("default")))
const velmora::content::Module velmoraContentModule = {velmora::content::InterfaceVersion, makeReader};
