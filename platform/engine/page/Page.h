#pragma once

#include "engine/gl/KeptGeometry.h"
#include "engine/page/CoarseBudget.h"
#include "engine/page/Frame.h"
#include "engine/page/Mark.h"
#include "engine/page/PageCanvas.h"

#include <memory>
#include <optional>
#include <vector>

namespace velmora::sdk::integration {
class GLDrawAreaInterface;
class PageInterface;
} // namespace velmora::sdk::integration

namespace velmora::engine {

/// A paper with frames, and the picture of it in at most one drawing area. GUI thread only.
class Page {
public:
    enum class PictureState {
        Complete,
        Waiting,    ///< for the engine's next turn, or being drawn in this one
        Interrupted ///< incomplete, and nobody has asked for the rest
    };

    explicit Page(int number) : m_number(number) {}
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    int number() const { return m_number; }

    // ---- what it shows

    const std::vector<Frame>& frames() const { return m_frames; }
    /// The frame that was given last; null and the printable paper on a page without frames.
    std::shared_ptr<Plot> currentPlot() const;
    InchRect currentFrameRect() const;
    /// A null pointer on a page without frames.
    DataSet currentData() const;
    void replaceFrames(std::vector<Frame> frames);
    void fitFramesToPaper();

    // ---- where it shows

    velmora::sdk::integration::GLDrawAreaInterface* area() const { return m_area; }
    velmora::sdk::integration::PageInterface* interface() const { return m_interface; }
    void attach(velmora::sdk::integration::GLDrawAreaInterface& area, velmora::sdk::integration::PageInterface* page);
    /// Releases what it holds of the area's context, when `contextWorks`, and forgets the area.
    void detach(bool contextWorks);
    /// The area can be painted now.
    bool canShow() const;
    PageCanvas& canvas() { return m_canvas; }
    /// What drawings in the area keep for the next.
    KeptGeometry& keptGeometry() { return m_keptGeometry; }
    /// Gives back what was kept of frames that the page has no longer. The area's context is current.
    void releaseObsoleteGeometry(const GLFunctions& gl);
    CoarseBudget& coarseBudget() { return m_coarseBudget; }

    /// A place that is marked over the picture, until what the page shows changes.
    const std::optional<Mark>& mark() const { return m_mark; }
    void setMark(const std::optional<Mark>& mark) { m_mark = mark; }

    // ---- the state of its picture

    PictureState pictureState() const { return m_state; }
    /// Grows whenever a picture that was begun before has become obsolete.
    unsigned long generation() const { return m_generation; }
    /// Grows whenever a plot of the page changed its view or its selection.
    unsigned long plotVersion() const { return m_plotVersion; }
    /// What the page shows has changed: it waits to be drawn anew.
    void changed();
    /// The same, because of a plot.
    void plotChanged();
    /// Waits to be drawn anew without a change, as after an interruption.
    void finishPicture();
    void pictureDone(PictureState state) { m_state = state; }
    /// A drawing of the full picture begins, and one that was begun before, further down the call stack, has
    /// become obsolete. Its number.
    unsigned long beginDrawing() { return ++m_drawing; }
    bool isCurrentDrawing(unsigned long drawing) const { return drawing == m_drawing; }
    /// Whether the area shows a picture of what the page shows now, be it a coarse one.
    bool isShown() const { return m_shownGeneration == m_generation; }
    void pictureShown() { m_shownGeneration = m_generation; }

private:
    void wait();

    int m_number;
    std::vector<Frame> m_frames;
    velmora::sdk::integration::GLDrawAreaInterface* m_area = nullptr;
    velmora::sdk::integration::PageInterface* m_interface = nullptr;
    PageCanvas m_canvas;
    KeptGeometry m_keptGeometry;
    bool m_framesReplaced = false; ///< since the last drawing
    CoarseBudget m_coarseBudget;
    std::optional<Mark> m_mark;
    PictureState m_state = PictureState::Waiting;
    unsigned long m_generation = 1;
    unsigned long m_shownGeneration = 0;
    unsigned long m_drawing = 0;
    unsigned long m_plotVersion = 0;
};

} // namespace velmora::engine
