#pragma once

#include <QString>

class QWidget;

namespace velmora::test {

// What a program for people who do not see the screen is told of a widget.

/// Null where it is told anything; else the reason why it is not, and must not be asked.
const char* whyNothingIsTold();

QString accessibleNameOf(QWidget& widget);
QString accessibleDescriptionOf(QWidget& widget);

} // namespace velmora::test
