#pragma once

namespace velmora::sdk::integration::toolkit {

/// Whether the process has an application object that may create widgets. False for a console
/// application and before there is any application object.
bool isGuiClient();

} // namespace velmora::sdk::integration::toolkit
