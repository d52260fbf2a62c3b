#pragma once

#include <QObject>
#include <boost/function.hpp>

namespace velmora {
namespace sdk {
namespace integration {
namespace intern {

/// Calls back when the receiver is destroyed, while it is still a QObject. Destroying the listener
/// ends the watch; the callback may not destroy it.
class EventReceiverDestroyedListener : public QObject {
    Q_OBJECT

public:
    /// An empty callback throws boost::bad_function_call when its time comes.
    EventReceiverDestroyedListener(const QObject& receiver, boost::function<void()> callback);

private Q_SLOTS:
    void eventReceiverDestroyed(QObject* receiver);

private:
    boost::function<void()> m_callback;
};

} // namespace intern
} // namespace integration
} // namespace sdk
} // namespace velmora
