#pragma once

class QWidget;

namespace velmora::sdk::integration::toolkit {

/// Whether swapping the widget's buffers can show anything. Since Qt 5 a widget is painted once before its
/// window is exposed, with a warning when its buffers are swapped then; the exposure that follows paints
/// it again. Qt 4 paints only what is exposed.
bool isReadyToSwap(const QWidget& widget);

} // namespace velmora::sdk::integration::toolkit
