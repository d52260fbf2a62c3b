#pragma once

class QWidget;

namespace velmora::sdk::integration::toolkit {

/// Whether swapping the widget's buffers can show anything. Qt 5 paints a widget once before its
/// window is exposed and warns when its buffers are swapped then; the exposure that follows paints
/// it again. Qt 4 paints only what is exposed.
bool isReadyToSwap(const QWidget& widget);

} // namespace velmora::sdk::integration::toolkit
