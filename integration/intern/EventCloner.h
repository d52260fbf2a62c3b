#pragma once

#include "integration/intern/ApplicationEventMonitor.h"

namespace velmora::sdk::integration::intern {

/// Copies an event so that it can be sent again later. No copy is made of an event that the analyzer
/// knows nothing of.
class ApplicationEventMonitor::EventFilter::EventCloner : public virtual EventHandlerInterface {
public:
    /// The copy, or null when no operation has run. The caller owns it.
    QEvent* clonedEvent() const { return m_clonedEvent; }

    void handleTimerEventCausingWidgetChange(const QTimerEvent& event) override;
    void handleMouseWheelEvent(const QWheelEvent& event) override;
    void handleMouseMoveEvent(const QMouseEvent& event) override;
    void handleMouseButtonPress(const QMouseEvent& event) override;
    void handleMouseButtonRelease(const QMouseEvent& event) override;
    void handleMouseButtonDblClick(const QMouseEvent& event) override;
    void handleKeyPress(const QKeyEvent& event) override;
    void handleKeyRelease(const QKeyEvent& event) override;
    void handleShortcut(const QShortcutEvent& event) override;
    void handleCloseEvent(const QCloseEvent& event) override;

private:
    void cloneMouseEvent(const QMouseEvent& event);
    void cloneKeyEvent(const QKeyEvent& event);

    QEvent* m_clonedEvent = nullptr;
};

} // namespace velmora::sdk::integration::intern
