#include "ViewTools.h"

#include "ScreenPixels.h"
#include "Toolkit.h"
#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "integration/glarea/GLDrawArea.h"
#include "interfaces/MouseEventInterface.h"

#include <QWheelEvent>
#include <cmath>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

// By Tool.
constexpr CursorStyle_e Cursors[] = {CursorStyle_Rotate, CursorStyle_Translate, CursorStyle_Zoom, CursorStyle_Cross,
                                     CursorStyle_Cross};

// Of the area's pixels, so that the same way of the hand does the same whatever their size.
constexpr double DegreesPerPixel = 0.4;
constexpr double ZoomPerPixel = 1.006;
constexpr double ZoomPerWheelUnit = 1.0015; // 120 units are one notch: about 20 percent

} // namespace

ViewTools::ViewTools(GLDrawArea& area) : QObject(&area), m_area(area), m_selector(area)
{
    m_area.addMouseListener(this);
    m_area.installEventFilter(this);
}

// The area that owns this object is on its way out by now and has no listeners any more.
ViewTools::~ViewTools() = default;

void ViewTools::setTool(Tool tool)
{
    m_tool = tool;
    VelEngBaseCursorSet(Cursors[tool]);
}

void ViewTools::deselect()
{
    if (m_selector.isActive()) {
        m_selector.cancel();
        m_isDragging = false;
    } else {
        VelUtilPickDeselectAll();
        Q_EMIT selectionChanged();
    }
}

void ViewTools::buttonPressed(MouseEventInterface& event, MouseEventObservableInterface&)
{
    const bool moves = event.button() == MouseEventInterface::MouseButton_Middle;
    const bool zooms = event.button() == MouseEventInterface::MouseButton_Right;
    m_dragging = moves ? Move : zooms ? Zoom : m_tool;
    m_isDragging = event.button() != MouseEventInterface::MouseButton_None;
    m_pressed = m_last = QPoint(event.x(), event.y());
    if (event.button() == MouseEventInterface::MouseButton_Left && event.isShiftDown() && m_tool != Select)
        m_dragging = ZoomToBox;
    if (m_isDragging && (m_dragging == Select || m_dragging == ZoomToBox))
        m_selector.begin(m_pressed);
}

void ViewTools::mouseMoved(MouseEventInterface& event, MouseEventObservableInterface&)
{
    if (!m_isDragging)
        return;
    const QPoint position(event.x(), event.y());
    drag(m_last, position);
    m_last = position;
}

void ViewTools::buttonReleased(MouseEventInterface& event, MouseEventObservableInterface&)
{
    const bool wasClick = m_isDragging && m_tool != Select && QPoint(event.x(), event.y()) == m_pressed;
    m_isDragging = false;
    if (wasClick && event.button() == MouseEventInterface::MouseButton_Left && clickLegend(m_pressed))
        Q_EMIT selectionChanged(); // what is hidden is not selected
    if (!m_selector.isActive())
        return;
    if (m_dragging == ZoomToBox) {
        m_selector.zoom(QPoint(event.x(), event.y()));
        return;
    }
    m_selector.finish(QPoint(event.x(), event.y()), event.isShiftDown());
    Q_EMIT selectionChanged();
}

void ViewTools::buttonDoublePressed(MouseEventInterface& event, MouseEventObservableInterface&)
{
    m_isDragging = false;
    if (m_tool == Select)
        return;
    const QPoint position(event.x(), event.y());
    // Its first press was a click already, which is undone.
    if (clickLegend(position)) {
        VelUtilLineShowAlone(VelUtilLegendLineAt(position.x(), position.y()));
        Q_EMIT selectionChanged();
    } else {
        VelUtilViewShowAll();
    }
}

bool ViewTools::clickLegend(const QPoint& position)
{
    const int line = VelUtilLegendLineAt(position.x(), position.y());
    return line > 0 && VelUtilLineShow(line, VelUtilLineIsShown(line) ? 0 : 1) != 0;
}

void ViewTools::drag(const QPoint& from, const QPoint& to)
{
    const QPoint way = to - from;
    const QPointF wayOfHand = QPointF(way) / screenPixelsPerPixel(m_area);
    switch (m_dragging) {
    case Rotate:
        VelUtilViewRotate(wayOfHand.x() * DegreesPerPixel, wayOfHand.y() * DegreesPerPixel);
        break;
    case Move:
        VelUtilViewTranslate(way.x(), way.y());
        break;
    case Zoom:
        VelUtilViewZoom(std::pow(ZoomPerPixel, -wayOfHand.y()), m_pressed.x(), m_pressed.y());
        break;
    case Select:
    case ZoomToBox:
        m_selector.extend(to);
        break;
    }
}

// The area's listeners hear of buttons and moves; the wheel reaches it as any widget's event.
bool ViewTools::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_area || event->type() != QEvent::Wheel)
        return false;
    const WheelTurn turn = turnOf(static_cast<const QWheelEvent&>(*event));
    const QPointF position = turn.position * screenPixelsPerPixel(m_area);
    const double factor = std::pow(ZoomPerWheelUnit, turn.delta);
    if (!VelUtilViewZoomAxis(factor, position.x(), position.y()))
        VelUtilViewZoom(factor, position.x(), position.y());
    return true;
}

} // namespace viewer
