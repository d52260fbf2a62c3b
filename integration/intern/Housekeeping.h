#pragma once

#include <QEvent>
#include <QPointer>
#include <utility>
#include <vector>

namespace velmora::sdk::integration::intern {

/// What the toolkit tells a receiver only once, if it was swallowed during an interruption: requests to
/// repaint, to lay out and to delete later, of which it posts no second one while the first is on its
/// way; a new size; the pointer's coming and going; and the release of a button, which would stay down.
class Housekeeping {
public:
    /// Remembers the event, if it is one of these.
    void remember(QObject* receiver, const QEvent& event);
    /// Makes up for all that is remembered, in its order, at the receivers that are still alive.
    void catchUp();

private:
    std::vector<std::pair<QPointer<QObject>, QEvent::Type>> m_errands;
};

} // namespace velmora::sdk::integration::intern
