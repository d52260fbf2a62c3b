#pragma once

#include "RegionSelector.h"
#include "interfaces/MouseEventListenerInterface.h"

#include <QObject>
#include <QPoint>

namespace velmora {
namespace sdk {
namespace integration {
class GLDrawArea;
} // namespace integration
} // namespace sdk
} // namespace velmora

namespace viewer {

/// What dragging the mouse over the drawing area does. The wheel always zooms, over an axis of lines that axis alone;
/// with Shift, and any tool but the one to select, dragging zooms to what the rubber band encloses; the middle button
/// always moves and the right button always zooms, whatever the tool. A click on an entry of the legend hides its line
/// or shows it again, and a double click shows it alone, or all again; only with the tool to select it selects.
class ViewTools : public QObject, public velmora::sdk::integration::MouseEventListenerInterface {
    Q_OBJECT

public:
    enum Tool { Rotate, Move, Zoom, Select, ZoomToBox };

    explicit ViewTools(velmora::sdk::integration::GLDrawArea& area);
    ~ViewTools() override;

    /// Also sets the tool's cursor.
    void setTool(Tool tool);
    Tool tool() const { return m_tool; }

    void mouseMoved(velmora::sdk::integration::MouseEventInterface& event,
                    velmora::sdk::integration::MouseEventObservableInterface& source) override;
    void buttonPressed(velmora::sdk::integration::MouseEventInterface& event,
                       velmora::sdk::integration::MouseEventObservableInterface& source) override;
    void buttonReleased(velmora::sdk::integration::MouseEventInterface& event,
                        velmora::sdk::integration::MouseEventObservableInterface& source) override;
    void buttonDoublePressed(velmora::sdk::integration::MouseEventInterface& event,
                             velmora::sdk::integration::MouseEventObservableInterface& source) override;

Q_SIGNALS:
    void selectionChanged();

public Q_SLOTS:
    /// Gives up the selection, or the rubber band of one.
    void deselect();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void drag(const QPoint& from, const QPoint& to);
    bool clickLegend(const QPoint& position);

    velmora::sdk::integration::GLDrawArea& m_area;
    RegionSelector m_selector;
    Tool m_tool = Rotate;
    Tool m_dragging = Rotate;
    bool m_isDragging = false;
    QPoint m_pressed;
    QPoint m_last;
};

} // namespace viewer
