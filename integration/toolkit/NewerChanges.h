#pragma once

#include <QEvent>

namespace velmora::sdk::integration::toolkit {

/// Whether events of this type tell a widget of a change that Qt 4 has no event for, and say no more than their
/// type: that its window has moved to another screen, that it can be edited or not.
bool isNewerChange(QEvent::Type type);

} // namespace velmora::sdk::integration::toolkit
