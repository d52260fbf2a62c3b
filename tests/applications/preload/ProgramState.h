#pragma once

#include <string>

namespace velmora::test {

/// What a person could use in the window that is in front: a popup, or a modal dialog, or the active
/// window. The first is of the kind "popup" or, for a file dialog, "files". Words of the form "kind:x,y,width,height",
/// in pixels of the screen.
std::string targets();

/// Whose turn it is: "busy=0 popup=QMenu modal=-", with the class of the open popup and of the modal
/// dialog in front.
std::string whatIsOpen();

/// What is left pressed, grabbed or half done though nobody presses anything; "" when all is well.
std::string problems();

/// Asks each visible widget for a complete repaint.
void repaintEverything();

} // namespace velmora::test
