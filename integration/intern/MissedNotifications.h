#pragma once

#include <QEvent>
#include <QPointer>
#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace velmora::sdk::integration::intern {

/// What the toolkit tells a receiver only once, for those events of the kind that were swallowed while
/// events were held back: after the engine's work the receiver is told again, or it would stay blank, laid
/// out for an old size, pressed, without focus or alive for good. The table of kinds, with what is done for
/// each, stands in the source file. GUI thread only.
class MissedNotifications {
public:
    using CopyEvent = std::function<std::unique_ptr<QEvent>(const QEvent& event, QObject& receiver)>;
    using Tell = std::function<void(QObject& receiver)>;

    /// `copy` makes the copy of a key or mouse event.
    explicit MissedNotifications(CopyEvent copy) : m_copy(std::move(copy)) {}

    /// For an event that is about to be swallowed: remembers it, if it is one of these. A widget is told at
    /// once of what is part of a call that is under way, for example of a child that it loses.
    void remember(QObject* receiver, QEvent* event);
    /// Tells all that is remembered, in its order, to the receivers that are still alive.
    void tellAgain();
    bool isEmpty() const { return m_missed.empty(); }

private:
    struct Missed {
        QPointer<QObject> receiver;
        QEvent::Type type;
        Tell tell;
    };
    struct Kind;
    static const std::vector<Kind> s_kinds;

    void add(QObject* receiver, const Kind& kind, const QEvent& event);
    bool takeBack(const QObject* receiver, QEvent::Type type);
    void rememberPressOrRelease(QObject* receiver, const QEvent& event);

    CopyEvent m_copy;
    std::vector<Missed> m_missed;
    std::set<int> m_swallowedPresses; ///< buttons and keys whose press was swallowed, and so their release too
};

} // namespace velmora::sdk::integration::intern
