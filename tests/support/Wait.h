#pragma once

#include <functional>

class QWidget;

namespace velmora::test {

/// Lets the application process its events until the condition holds, at most `milliseconds`;
/// whether it holds at the end.
bool waitUntil(const std::function<bool()>& condition, int milliseconds = 30000);

/// Lets the application process events for as long as there are any at once.
void processPending();

/// Shows the widget and waits until the X server has mapped and exposed it.
bool showAndWait(QWidget& widget);

} // namespace velmora::test
