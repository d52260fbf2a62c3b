#include "integration/intern/Housekeeping.h"

#include "integration/toolkit/EventTransport.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QResizeEvent>
#include <QWidget>

namespace velmora::sdk::integration::intern {

namespace {

bool concernsAnyObject(QEvent::Type type)
{
    return type == QEvent::UpdateRequest || type == QEvent::LayoutRequest || type == QEvent::DeferredDelete;
}

bool concernsWidget(QEvent::Type type)
{
    return type == QEvent::Resize || type == QEvent::Enter || type == QEvent::Leave;
}

void tellWidget(QWidget& widget, QEvent::Type type)
{
    if (type == QEvent::Resize) // the size that it has now, whatever came in between
        QCoreApplication::postEvent(&widget, new QResizeEvent(widget.size(), QSize())); // the queue owns it
    else if (type == QEvent::Enter)
        QCoreApplication::postEvent(&widget, toolkit::enterEvent(widget).release()); // the queue owns it
    else if (type == QEvent::Leave)
        QCoreApplication::postEvent(&widget, new QEvent(type)); // the queue owns it
    else
        static_cast<QAbstractButton&>(widget).setDown(false); // without a click: the release is gone
}

} // namespace

void Housekeeping::remember(QObject* receiver, const QEvent& event)
{
    const QEvent::Type type = event.type();
    if (concernsAnyObject(type) || (concernsWidget(type) && receiver->isWidgetType()) ||
        (type == QEvent::MouseButtonRelease && qobject_cast<const QAbstractButton*>(receiver)))
        m_errands.emplace_back(receiver, type);
}

void Housekeeping::catchUp()
{
    for (const auto& [receiver, type] : std::exchange(m_errands, {})) {
        if (!receiver)
            continue;
        if (type == QEvent::DeferredDelete)
            receiver->deleteLater();
        else if (concernsAnyObject(type))
            QCoreApplication::postEvent(receiver, new QEvent(type)); // the queue owns it
        else
            tellWidget(static_cast<QWidget&>(*receiver), type);
    }
}

} // namespace velmora::sdk::integration::intern
