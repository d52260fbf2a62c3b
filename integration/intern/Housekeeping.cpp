#include "integration/intern/Housekeeping.h"

#include <QCoreApplication>

namespace velmora::sdk::integration::intern {

void Housekeeping::remember(QObject* receiver, const QEvent& event)
{
    const QEvent::Type type = event.type();
    if (type == QEvent::UpdateRequest || type == QEvent::LayoutRequest || type == QEvent::DeferredDelete)
        m_errands.emplace_back(receiver, type);
}

void Housekeeping::askAgain()
{
    for (const auto& [receiver, type] : std::exchange(m_errands, {})) {
        if (receiver && type == QEvent::DeferredDelete)
            receiver->deleteLater();
        else if (receiver)
            QCoreApplication::postEvent(receiver, new QEvent(type)); // the queue owns it
    }
}

} // namespace velmora::sdk::integration::intern
