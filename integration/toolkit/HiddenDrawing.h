#pragma once

#include <QImage>
#include <functional>

namespace velmora::sdk::integration::toolkit {

/// The picture that `draw` makes in a hidden widget of this size, with an OpenGL context of its own that is
/// current meanwhile; null when there is no such picture to be had, or it
/// cannot be read. A size that canDrawOffscreen(). `draw`
/// must not throw. OpenGL errors that the toolkit's own preparations left behind are forgotten before it is
/// called. GUI thread only.
QImage drawHidden(const QSize& size, const std::function<void()>& draw);

} // namespace velmora::sdk::integration::toolkit
