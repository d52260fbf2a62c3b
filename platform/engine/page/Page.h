#pragma once

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
    std::shared_ptr<Content> currentContent() const;
    InchRect currentFrameRect() const;
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
    /// The number of the area's context, for contents that keep objects in it; no other context has had it.
    unsigned long contextNumber() const { return m_contextNumber; }
    /// Lets contents that the page shows no longer give back what they keep in the area's context, which is current.
    void dismissObsoleteContents();

    /// A place that is marked over the picture, until what the page shows changes.
    const std::optional<Mark>& mark() const { return m_mark; }
    void setMark(const std::optional<Mark>& mark) { m_mark = mark; }

    // ---- the state of its picture

    PictureState pictureState() const { return m_state; }
    /// Grows whenever a picture that was begun before has become obsolete.
    unsigned long generation() const { return m_generation; }
    /// Grows whenever a content of the page changed its look, its view or its selection.
    unsigned long contentVersion() const { return m_contentVersion; }
    /// What the page shows has changed: it waits to be drawn anew.
    void changed();
    /// The same, because of a content.
    void contentChanged();
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
    void leaveContext(bool isCurrent);
    void wait();

    int m_number;
    std::vector<Frame> m_frames;
    velmora::sdk::integration::GLDrawAreaInterface* m_area = nullptr;
    velmora::sdk::integration::PageInterface* m_interface = nullptr;
    PageCanvas m_canvas;
    unsigned long m_contextNumber = 0;
    std::vector<std::shared_ptr<Content>> m_obsolete; ///< replaced since the last drawing
    std::optional<Mark> m_mark;
    PictureState m_state = PictureState::Waiting;
    unsigned long m_generation = 1;
    unsigned long m_shownGeneration = 0;
    unsigned long m_drawing = 0;
    unsigned long m_contentVersion = 0;
};

} // namespace velmora::engine
