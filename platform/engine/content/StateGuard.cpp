#include "engine/VelContent.h"
#include "engine/gl/GLStateGuard.h"

namespace velmora::content {

struct StateGuard::Kept {
    engine::GLFunctions gl = engine::currentGL();
    engine::GLStateGuard guard{gl};
};

StateGuard::StateGuard() : m_kept(std::make_unique<Kept>()) {}
StateGuard::~StateGuard() = default;

} // namespace velmora::content
