#pragma once

namespace velmora::engine {

struct GLFunctions;

/// The picture of a page, in framebuffer objects of the drawing area's own context: it survives exposures.
/// There are two: what the screen shows, into which a coarse picture is drawn at once, and the full picture
/// that is being drawn meanwhile and takes its place when it is complete. That one is drawn with several
/// samples a pixel where the context has them.
///
/// Without framebuffer objects there is no canvas, and the page is drawn straight into the area's
/// back buffer. Every operation but `forget` needs the area's context to be current, and leaves the
/// framebuffer binding changed.
class PageCanvas {
public:
    /// Makes the canvas fit. False when what it holds is not a drawing of that size: it is new, and
    /// shows blank ground or the picture before it, scaled.
    bool prepare(const GLFunctions& gl, int width, int height);
    /// No framebuffer objects: draw into the area itself. Known after `prepare`.
    bool isDirect() const { return m_isDirect; }
    /// Binds the framebuffer to draw a coarse picture into.
    void beginCoarse(const GLFunctions& gl);
    /// Binds the framebuffer to draw the full picture into, unseen until it is complete.
    void beginFull(const GLFunctions& gl);
    /// The full picture takes the place of what the screen shows.
    void completeFull(const GLFunctions& gl);
    /// Puts what is to be shown into the area's own framebuffer.
    void show(const GLFunctions& gl);
    /// Gives the objects back.
    void release(const GLFunctions& gl);
    /// Forgets objects whose context is gone.
    void forget();

private:
    struct Target {
        unsigned framebuffer = 0;
        unsigned colour = 0;
        unsigned depth = 0;
    };
    static bool create(const GLFunctions& gl, Target& target, int width, int height, int samples);
    static void destroy(const GLFunctions& gl, Target& target);
    bool isAlive(const GLFunctions& gl) const;
    bool createAll(const GLFunctions& gl, int width, int height);
    void takeOver(const GLFunctions& gl, const Target& from, int width, int height);

    Target m_full;  ///< with samples where there are any
    Target m_shown; ///< one sample a pixel
    int m_width = 0;
    int m_height = 0;
    bool m_isDirect = false;
};

} // namespace velmora::engine
