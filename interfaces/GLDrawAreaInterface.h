#pragma once

#include "interfaces/KeyEventObservableInterface.h"
#include "interfaces/MouseEventObservableInterface.h"

namespace velmora {
namespace sdk {
namespace integration {

class GLContextInterface;
class GLDrawAreaListenerInterface;
class PageManagerInterface;

/// The surface on the screen that the engine paints into. It is also the source of the key and
/// mouse events that happen over it. GUI thread only.
class VELMORA_INTERFACE GLDrawAreaInterface : public virtual MouseEventObservableInterface,
                                              public virtual KeyEventObservableInterface {
    Signal<void(bool)> m_drawAreaExposed;
    Signal<void()> m_drawAreaDestroyed;
    Signal<void()> m_drawAreaFocusGained;

public:
    /// Whether the area is shown, as the windowing toolkit sees it.
    virtual bool isVisible() const = 0;
    /// Width and height in pixels of the screen, which are those of OpenGL's viewport: where the windowing
    /// toolkit scales what it shows, more than the widget's own. Neither pointer may be null.
    virtual void getSize(int* width, int* height) const = 0;
    /// The area's OpenGL context, which lives as long as the area.
    virtual GLContextInterface& getGLContext() = 0;
    /// False once the area is on its way out, or when its OpenGL context is not valid.
    virtual bool isValidWidget() const = 0;
    /// Adding a listener twice has no further effect; null is ignored. Listeners are borrowed.
    virtual void addStateListener(GLDrawAreaListenerInterface* listener) = 0;
    /// A listener that was not added is ignored.
    virtual void removeStateListener(GLDrawAreaListenerInterface* listener) = 0;
    /// @{
    /// Called when a slot has been connected to the signal of that name.
    virtual void signalDrawAreaExposedConnected() const = 0;
    virtual void signalDrawAreaDestroyedConnected() const = 0;
    virtual void signalDrawAreaFocusGainedConnected() const = 0;
    /// @}
    /// Hands the area to the engine: from now on a page of this manager is painted into it.
    virtual void setPageManager(PageManagerInterface& manager) = 0;

    /// Slot `void(bool sizeChanged)`, after every paint event.
    template <typename Slot>
    Connection connectDrawAreaExposed(const Slot& slot)
    {
        return connectTo(m_drawAreaExposed, slot, *this, &GLDrawAreaInterface::signalDrawAreaExposedConnected);
    }
    /// Slot `void()`, when the area goes away.
    template <typename Slot>
    Connection connectDrawAreaDestroyed(const Slot& slot)
    {
        return connectTo(m_drawAreaDestroyed, slot, *this, &GLDrawAreaInterface::signalDrawAreaDestroyedConnected);
    }
    /// Slot `void()`, on every focus-in event.
    template <typename Slot>
    Connection connectDrawAreaFocusGained(const Slot& slot)
    {
        return connectTo(m_drawAreaFocusGained, slot, *this, &GLDrawAreaInterface::signalDrawAreaFocusGainedConnected);
    }

protected:
    /// @{
    /// Calls the slots of the signal of that name. For the area alone.
    void emitDrawAreaExposed(bool sizeChanged) { emitTo(m_drawAreaExposed, sizeChanged); }
    void emitDrawAreaDestroyed() { emitTo(m_drawAreaDestroyed); }
    void emitDrawAreaFocusGained() { emitTo(m_drawAreaFocusGained); }
    /// @}
};

} // namespace integration
} // namespace sdk
} // namespace velmora
