#include "tests/support/AccessibleText.h"

#include <QAccessible>
#include <QWidget>
#include <memory>

namespace velmora::test {

namespace {

constexpr int TheWidgetItself = 0;

QString textOf(QWidget& widget, QAccessible::Text text)
{
    const std::unique_ptr<QAccessibleInterface> accessible(QAccessible::queryAccessibleInterface(&widget));
    return accessible->text(text, TheWidgetItself);
}

} // namespace

QString accessibleNameOf(QWidget& widget)
{
    return textOf(widget, QAccessible::Name);
}

QString accessibleDescriptionOf(QWidget& widget)
{
    return textOf(widget, QAccessible::Description);
}

} // namespace velmora::test
