#include "chosen_toolkit/ClosingOfDialogs.h"

#include <QDialog>
#include <QScopedValueRollback>
#include <utility>

namespace velmora::sdk::integration::toolkit {

ClosingOfDialogs::ClosingOfDialogs(Decision decision) : m_decision(std::move(decision)) {}

bool ClosingOfDialogs::takesOverFrom(QObject* receiver, QEvent::Type type)
{
    if (!qobject_cast<QDialog*>(receiver))
        return false;
    if (type == QEvent::Close)
        return m_watched.count(receiver) != 0;
    if (m_watched.insert(receiver).second) {
        receiver->installEventFilter(this);
        connect(receiver, &QObject::destroyed, this, [this](QObject* dialog) { m_watched.erase(dialog); });
    }
    return false;
}

bool ClosingOfDialogs::eventFilter(QObject* dialog, QEvent* event)
{
    if (event->type() != QEvent::Close)
        return false;
    const QScopedValueRollback<const QEvent*> decided(m_decided, event);
    return m_decision(dialog, event);
}

} // namespace velmora::sdk::integration::toolkit
