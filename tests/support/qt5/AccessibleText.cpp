#include "tests/support/AccessibleText.h"

#include <QAccessible>
#include <QWidget>

namespace velmora::test {

const char* whyNothingIsTold()
{
    return nullptr;
}

QString accessibleNameOf(QWidget& widget)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

QString accessibleDescriptionOf(QWidget& widget)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description);
}

} // namespace velmora::test
