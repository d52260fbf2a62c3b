#pragma once

#include "engine/core/Checkpoint.h"
#include "engine/page/Frame.h"

#include <memory>
#include <vector>

namespace velmora::engine {

struct GLFunctions;

/// A rectangle of a target: pixels from its lower left corner.
struct PixelRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

/// What is to be drawn where: a page laid out for a target, with nothing left to decide. It shares
/// the contents, so that it stays drawable when the page gets others.
struct Picture {
    struct PlacedFrame {
        PixelRect rect;
        std::shared_ptr<Content> content;
    };
    bool showsPaper = false; ///< the sheet on the workspace, and not just white ground
    bool showsMargins = false;
    bool isOnBlack = false; ///< the ground, which else is white
    PixelRect paper;
    PixelRect printable;
    std::vector<PlacedFrame> frames;
    double pixelsPerPoint = 1;
    double leastText = 0;     ///< see Drawing
    double magnification = 1; ///< of the sheet's shadow and lines, over a screen's
    Detail detail = Detail::Full;
    unsigned long context = 0; ///< see Drawing

    /// The picture as it looks from a tile whose lower left corner is at x, y.
    Picture seenFrom(double x, double y) const;
};

/// Draws the picture over a whole target of the current context, into the framebuffer that is bound;
/// false when `checkpoint` said to stop.
bool paintPicture(const Picture& picture, const GLFunctions& gl, int width, int height, Checkpoint& checkpoint);
/// Draws what lies below the frames.
void paintGround(const Picture& picture, const GLFunctions& gl, int width, int height);

} // namespace velmora::engine
