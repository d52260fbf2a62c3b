#include "tests/support/Wait.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QWidget>

namespace velmora::test {

bool waitUntil(const std::function<bool()>& condition, int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > milliseconds)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void processPending()
{
    // Two rounds: what the first one posts is delivered by the second.
    for (int round = 0; round < 2; ++round)
        QCoreApplication::processEvents();
}

namespace {

// Sees the first paint of a window: of the widget itself or of one that covers it.
class PaintWatcher : public QObject {
public:
    explicit PaintWatcher(const QWidget& window) : m_window(window) {}

    bool painted = false;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        const QWidget* const widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(receiver) : nullptr;
        painted = painted || (widget && (widget == &m_window || m_window.isAncestorOf(widget)));
        return false;
    }

private:
    const QWidget& m_window;
};

} // namespace

bool showAndWait(QWidget& widget)
{
    PaintWatcher watcher(widget);
    qApp->installEventFilter(&watcher);
    widget.show();
    widget.activateWindow();
    const bool shown = waitUntil([&] { return watcher.painted && widget.isVisible(); });
    // Qt 4 activates no window before the server has mapped it.
    if (!widget.isActiveWindow())
        widget.activateWindow();
    qApp->removeEventFilter(&watcher);
    return shown;
}

} // namespace velmora::test
