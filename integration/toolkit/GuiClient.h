#pragma once

namespace velmora::sdk::integration::toolkit {

/// Whether the process has an application object that may create widgets and a window system for
/// them. False for a console application, before there is any application object, and on a platform
/// without windows that has no OpenGL either. A real window system without OpenGL counts. GUI thread
/// only.
bool isGuiClient();

} // namespace velmora::sdk::integration::toolkit
