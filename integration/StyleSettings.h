#pragma once

namespace velmora {
namespace toolbox {
class StyleValue;
}
} // namespace velmora

namespace velmora {
namespace sdk {
namespace integration {

/// For the toolbox's argument lists: the setting itself, not one of a row of them, and a value that
/// takes the place of the old one.
constexpr int NoOffset = -1;
constexpr int ReplaceAssignment = 255;

/// The integer setting `key` of a section of the engine's style tree, for example "DepthBufferSize"
/// of StyleValue("Interface", "OpenGLConfig", "ImageRendering"); `defaultValue` when it cannot be
/// read. GUI thread only. Exceptions of the toolbox pass through.
int readStyleInteger(const toolbox::StyleValue& section, const char* key, int defaultValue = 0);

/// Writes an integer setting; the engine's code, 0 when the value was applied. The caller
/// holds an AppLock.
int writeStyleInteger(const toolbox::StyleValue& section, const char* key, int value);

} // namespace integration
} // namespace sdk
} // namespace velmora
