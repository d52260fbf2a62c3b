#pragma once

#include <QString>

class QWidget;

namespace velmora::test {

// What a program for people who do not see the screen is told of a widget.

QString accessibleNameOf(QWidget& widget);
QString accessibleDescriptionOf(QWidget& widget);

} // namespace velmora::test
