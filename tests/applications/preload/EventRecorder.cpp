#include "tests/applications/preload/EventRecorder.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMetaEnum>
#include <QMouseEvent>
#include <QStringList>
#include <QWidget>
#include <stdexcept>

namespace velmora::test {

namespace {

bool dependsOnTime(QEvent::Type type)
{
    switch (type) {
    case QEvent::Timer:
    case QEvent::Paint:
    case QEvent::UpdateRequest:
    case QEvent::UpdateLater:
    case QEvent::LayoutRequest:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
    case QEvent::ActivationChange:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::FocusAboutToChange:
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
    case QEvent::HoverMove:
    case QEvent::ToolTip:
        return true;
    default:
        return false;
    }
}

/// Looking for files is done in a thread of its own.
bool isOfFileDialog(const QObject& object)
{
    for (const QObject* each = &object; each; each = each->parent())
        if (each->inherits("QFileDialog"))
            return true;
    return false;
}

/// How long the pointer rests over something, and how long a message is in the status bar, depends on
/// the machine: while a record is made there are no tool tips, and the messages stay.
bool comesByItself(const QObject& receiver, QEvent::Type type)
{
    return type == QEvent::ToolTip ||
           (type == QEvent::Timer && receiver.parent() && receiver.parent()->inherits("QStatusBar"));
}

QString nameOf(const QObject& object)
{
    const QString name = object.objectName();
    const QString type = QString::fromLatin1(object.metaObject()->className());
    return name.isEmpty() ? type : type + "(" + name + ")";
}

QString pathOf(const QObject& widget)
{
    QStringList names;
    for (const QObject* each = &widget; each; each = each->parent())
        names.prepend(nameOf(*each));
    return names.join("/");
}

QString typeOf(const QEvent& event)
{
    const QMetaObject& meta = QEvent::staticMetaObject;
    const char* const key = meta.enumerator(meta.indexOfEnumerator("Type")).valueToKey(event.type());
    return key ? QString::fromLatin1(key) : QString::number(event.type());
}

QString detailsOf(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
        const QMouseEvent& mouse = static_cast<const QMouseEvent&>(event);
        return QString::fromLatin1(" at %1,%2 button %3 of %4")
            .arg(mouse.x())
            .arg(mouse.y())
            .arg(mouse.button())
            .arg(mouse.buttons());
    }
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride: {
        const QKeyEvent& key = static_cast<const QKeyEvent&>(event);
        return QString::fromLatin1(" key %1 with %2").arg(key.key()).arg(key.modifiers());
    }
    default:
        return QString();
    }
}

} // namespace

EventRecorder::EventRecorder(const std::string& fileName)
{
    if (fileName.empty())
        return;
    m_file = std::fopen(fileName.c_str(), "w");
    if (!m_file)
        throw std::runtime_error("The file " + fileName + " cannot be written.");
    std::setvbuf(m_file, nullptr, _IOLBF, BUFSIZ); // the program may be killed
}

EventRecorder::~EventRecorder()
{
    if (m_file)
        std::fclose(m_file);
}

void EventRecorder::mark(const std::string& text)
{
    if (m_file)
        std::fprintf(m_file, "-- %s\n", text.c_str());
}

bool EventRecorder::eventFilter(QObject* receiver, QEvent* event)
{
    const QEvent::Type type = event->type();
    m_events += type != QEvent::Timer && type != QEvent::SockAct ? 1 : 0;
    m_keyPresses += type == QEvent::KeyPress ? 1 : 0;
    if (m_file && receiver->isWidgetType() && !dependsOnTime(type) && !isOfFileDialog(*receiver)) {
        const QString line = typeOf(*event) + " " + pathOf(*receiver) + detailsOf(*event);
        std::fprintf(m_file, "%s\n", line.toUtf8().constData());
    }
    return m_file && comesByItself(*receiver, type);
}

} // namespace velmora::test
