#pragma once

#include "interfaces/EngineEnumerations.h"

namespace velmora::sdk::integration {
class OffscreenImageInterface;
}

namespace velmora::engine {

/// Draws the active page, or a part of the picture that is being exported, into an off-screen image of the
/// binding, as work that the application can stop. False when it was stopped or has failed, then with the
/// reason in the last error.
bool drawImage(velmora::sdk::integration::ExportRegion_e region,
               velmora::sdk::integration::OffscreenImageInterface& image) noexcept;

} // namespace velmora::engine
