#pragma once

#include "engine/gl/GLFunctions.h"

namespace velmora::engine {

/// What the engine's own plots draw with, beside what every content is told.
struct DrawingMeans {
    const GLFunctions* gl = nullptr; ///< of the current context; it may come to do nothing in the middle of a drawing
    bool asksOften = false;          ///< after each small portion, however fast it was drawn
};

/// Of the drawing that was begun last and is under way; without one, the current context's entry points.
DrawingMeans drawingMeans();

/// A drawing is under way as long as this lives.
class DrawingMeansScope {
public:
    explicit DrawingMeansScope(const DrawingMeans& means);
    ~DrawingMeansScope();
    DrawingMeansScope(const DrawingMeansScope&) = delete;
    DrawingMeansScope& operator=(const DrawingMeansScope&) = delete;

private:
    DrawingMeans m_outer;
};

} // namespace velmora::engine
