#pragma once

#include <QEvent>
#include <QPointer>
#include <utility>
#include <vector>

namespace velmora::sdk::integration::intern {

/// The toolkit's own errands that were swallowed during an interruption: repainting, laying out and
/// deleting later. The toolkit remembers that such an event is on its way and posts no second one, so
/// without being asked for again they would never be run.
class Housekeeping {
public:
    /// Remembers the errand, if the event is one.
    void remember(QObject* receiver, const QEvent& event);
    /// Asks for all that is remembered again, of the receivers that are still alive.
    void askAgain();

private:
    std::vector<std::pair<QPointer<QObject>, QEvent::Type>> m_errands;
};

} // namespace velmora::sdk::integration::intern
