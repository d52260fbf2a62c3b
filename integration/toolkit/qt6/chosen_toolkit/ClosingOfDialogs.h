#pragma once

#include <QEvent>
#include <QObject>
#include <functional>
#include <unordered_set>

namespace velmora::sdk::integration::toolkit {

/// Tells the Close that somebody means from the one that QDialog::done() sends.
///
/// Since Qt 6.3 that function closes the dialog as QWidget::close() does, but with a filter on the dialog that takes
/// the event away: nobody is meant to see it, and a dialog whose Close is held back stays open for good. A filter of
/// the application comes before all filters of the dialog. So the decision on a Close to a dialog is taken over from
/// it by a filter of the dialog itself, installed when the dialog is shown, long before that of done(), and so asked
/// after it.
class ClosingOfDialogs : public QObject {
public:
    /// What decides on an event otherwise: true holds it back.
    using Decision = std::function<bool(QObject*, QEvent*)>;
    explicit ClosingOfDialogs(Decision decision);

    /// Whether the event is decided on later. Asked for every event of the application that is about to be
    /// delivered, before all else.
    bool takesOver(QObject* receiver, const QEvent& event)
    {
        const QEvent::Type type = event.type();
        return (type == QEvent::Show || type == QEvent::Close) && &event != m_decided && takesOverFrom(receiver, type);
    }

    bool eventFilter(QObject* dialog, QEvent* event) override;

private:
    bool takesOverFrom(QObject* receiver, QEvent::Type type);

    const Decision m_decision;
    std::unordered_set<const QObject*> m_watched;
    const QEvent* m_decided = nullptr;
};

} // namespace velmora::sdk::integration::toolkit
