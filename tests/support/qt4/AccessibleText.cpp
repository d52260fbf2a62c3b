#include "tests/support/AccessibleText.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QFile>
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

const char* whyNothingIsTold()
{
    const QStringList folders = QCoreApplication::libraryPaths();
    for (const QString& folder : folders)
        if (QFile::exists(folder + QLatin1String("/accessible/libqtaccessiblewidgets.so")))
            return nullptr;
    return "a Qt 4 without its plugin for accessible widgets crashes in lists once anything was asked";
}

QString accessibleNameOf(QWidget& widget)
{
    return textOf(widget, QAccessible::Name);
}

QString accessibleDescriptionOf(QWidget& widget)
{
    return textOf(widget, QAccessible::Description);
}

} // namespace velmora::test
