#include "ui_qt/OverrideCursor.h"

#include <QApplication>
#include <QCursor>

namespace velmora::ui {

OverrideCursor::OverrideCursor(Qt::CursorShape shape)
{
    QApplication::setOverrideCursor(QCursor(shape));
}

OverrideCursor::~OverrideCursor()
{
    QApplication::restoreOverrideCursor();
}

} // namespace velmora::ui
