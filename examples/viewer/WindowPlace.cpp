#include "WindowPlace.h"

#include <QEvent>
#include <QMainWindow>
#include <QSettings>

namespace viewer {

namespace {

const char* const Geometry = "window/geometry";
const char* const Bars = "window/bars";

} // namespace

// The toolkit itself sees to it that what it restores is on a screen.
WindowPlace::WindowPlace(QMainWindow& window) : QObject(&window), m_window(window)
{
    const QSettings settings;
    m_window.restoreGeometry(settings.value(QLatin1String(Geometry)).toByteArray());
    m_window.restoreState(settings.value(QLatin1String(Bars)).toByteArray());
    m_window.installEventFilter(this);
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_window && event->type() == QEvent::Close) {
        QSettings settings;
        settings.setValue(QLatin1String(Geometry), m_window.saveGeometry());
        settings.setValue(QLatin1String(Bars), m_window.saveState());
    }
    return QObject::eventFilter(watched, event);
}

} // namespace viewer
