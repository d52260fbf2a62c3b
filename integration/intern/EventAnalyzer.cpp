// ApplicationEventMonitor::eventAnalyzer: which events matter to the engine.

#include "integration/intern/ApplicationEventMonitor.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QTimerEvent>
#include <QWheelEvent>
#include <array>

namespace velmora::sdk::integration::intern {

namespace {

using Handler = ApplicationEventMonitor::EventHandlerInterface;

// Widgets that change their value by themselves while a button of theirs is held down.
bool isValueWidget(QObject& receiver)
{
    return receiver.isWidgetType() &&
           (qobject_cast<QAbstractSpinBox*>(&receiver) || qobject_cast<QAbstractSlider*>(&receiver) ||
            qobject_cast<QAbstractButton*>(&receiver));
}

bool isApplicationOrWindow(QObject& receiver)
{
    if (qobject_cast<QApplication*>(&receiver))
        return true;
    if (!receiver.isWidgetType())
        qFatal("An object that is neither a widget nor the application was asked to close.");
    const QWidget& widget = static_cast<QWidget&>(receiver);
    // All bits of it: tool tips and splash screens.
    return widget.isWindow() && (widget.windowFlags() & Qt::ToolTip) != Qt::ToolTip;
}

template <typename Event, void (Handler::*Operation)(const Event&)>
void handOver(const QEvent& event, Handler& handler)
{
    (handler.*Operation)(static_cast<const Event&>(event));
}

struct Row {
    bool (*condition)(QObject& receiver) = nullptr; ///< none: any receiver
    void (*handOver)(const QEvent& event, Handler& handler) = nullptr;
};

// One place for each event type, so that an event that nobody asked about costs one look.
using Rows = std::array<Row, ApplicationEventMonitor::LastAnalyzedType + 1>;

constexpr Rows makeTable()
{
    Rows rows = {};
    rows[QEvent::Timer] = {isValueWidget, handOver<QTimerEvent, &Handler::handleTimerEventCausingWidgetChange>};
    rows[QEvent::MouseButtonPress] = {nullptr, handOver<QMouseEvent, &Handler::handleMouseButtonPress>};
    rows[QEvent::MouseButtonRelease] = {nullptr, handOver<QMouseEvent, &Handler::handleMouseButtonRelease>};
    rows[QEvent::MouseButtonDblClick] = {nullptr, handOver<QMouseEvent, &Handler::handleMouseButtonDblClick>};
    rows[QEvent::MouseMove] = {nullptr, handOver<QMouseEvent, &Handler::handleMouseMoveEvent>};
    rows[QEvent::KeyPress] = {nullptr, handOver<QKeyEvent, &Handler::handleKeyPress>};
    rows[QEvent::KeyRelease] = {nullptr, handOver<QKeyEvent, &Handler::handleKeyRelease>};
    rows[QEvent::Close] = {isApplicationOrWindow, handOver<QCloseEvent, &Handler::handleCloseEvent>};
    rows[QEvent::Wheel] = {nullptr, handOver<QWheelEvent, &Handler::handleMouseWheelEvent>};
    // Deliberately the key press operation: the engine hears of the key before any shortcut eats it.
    rows[QEvent::ShortcutOverride] = {nullptr, handOver<QKeyEvent, &Handler::handleKeyPress>};
    rows[QEvent::Shortcut] = {nullptr, handOver<QShortcutEvent, &Handler::handleShortcut>};
    return rows;
}

constexpr Rows Table = makeTable();

} // namespace

void ApplicationEventMonitor::eventAnalyzer(const QEvent& event, QObject& receiver, EventHandlerInterface& handler)
{
    const unsigned type = static_cast<unsigned>(event.type());
    if (type >= Table.size() || !Table[type].handOver)
        handler.handleEvent(event);
    else if (!Table[type].condition || Table[type].condition(receiver))
        Table[type].handOver(event, handler);
}

} // namespace velmora::sdk::integration::intern
