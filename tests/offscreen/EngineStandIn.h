#pragma once

#include "interfaces/EngineEnumerations.h"

#include <functional>

namespace velmora::sdk::integration {
class OffscreenImageInterface;
}

namespace velmora::test {

/// What the engine does when an image asks it to draw; the result is the engine's answer.
using Drawing = std::function<int(sdk::integration::ExportRegion_e, sdk::integration::OffscreenImageInterface&)>;

/// Replaces the engine's drawing for the life of the object; without one the engine answers 0 and
/// draws nothing.
class EngineDraws {
public:
    explicit EngineDraws(Drawing drawing);
    ~EngineDraws();
    EngineDraws(const EngineDraws&) = delete;
    EngineDraws& operator=(const EngineDraws&) = delete;

private:
    Drawing m_previous;
};

/// Sets an integer of "Interface"/"OpenGLConfig"/"ImageRendering" for the life of the object.
class ImageSetting {
public:
    ImageSetting(const char* key, int value);
    ~ImageSetting();
    ImageSetting(const ImageSetting&) = delete;
    ImageSetting& operator=(const ImageSetting&) = delete;

private:
    const char* m_key;
    int m_previous;
};

} // namespace velmora::test
