#include "tests/soak/OutermostLoop.h"

#include <QApplication>
#include <QDialog>

namespace velmora::test {

// The toolkit does not count its loops, but a dialog stays modal until exec() returns, hidden or not.
bool isInOutermostLoop()
{
    for (const QWidget* const widget : QApplication::topLevelWidgets())
        if (widget->isModal() && qobject_cast<const QDialog*>(widget))
            return false;
    return true;
}

} // namespace velmora::test
