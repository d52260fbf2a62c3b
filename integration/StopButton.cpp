#include "integration/StopButton.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QPointer>

namespace velmora::sdk::integration {

class StopButton::Impl : public QObject {
public:
    explicit Impl(QAbstractButton* wrapped) : button(wrapped) {}

    ~Impl() override
    {
        // The application object may be gone at process exit, and its cursors with it.
        if (cursorOverridden && QCoreApplication::instance())
            QApplication::restoreOverrideCursor();
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Enter) {
            QApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
            cursorOverridden = true;
        } else if (event->type() == QEvent::Leave) {
            // Deliberately whatever the flag says.
            QApplication::restoreOverrideCursor();
            cursorOverridden = false;
        }
        return false;
    }

    QPointer<QAbstractButton> button;
    bool cursorOverridden = false;
};

StopButton::StopButton(QAbstractButton* button) : m_impl(std::make_unique<Impl>(button))
{
    button->installEventFilter(m_impl.get());
}

StopButton::~StopButton() = default;

bool StopButton::isActive() const
{
    const QAbstractButton* const button = m_impl->button;
    return button && button->testAttribute(Qt::WA_WState_Visible) && !button->testAttribute(Qt::WA_Disabled);
}

bool StopButton::isEqual(const void* object) const
{
    return object == m_impl->button.data();
}

} // namespace velmora::sdk::integration
