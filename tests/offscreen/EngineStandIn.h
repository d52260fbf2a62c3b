#pragma once

#include "interfaces/EngineEnumerations.h"
#include "tests/offscreen/GLTable.h"
#include "tests/offscreen/ImageKinds.h"

#include <functional>

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

/// What to draw into an image of that kind with.
const GLTable& glOf(ImageKind kind);

/// Makes the image's context current and draws into it while the image renders; the result of
/// render().
bool renderImage(ImageKind kind, sdk::integration::OffscreenImageInterface& image,
                 const std::function<void(const GLTable&, int width, int height)>& draw);

} // namespace velmora::test
