#pragma once

class QImage;

namespace velmora::test {

/// The picture has the surface's colours, of low, middle and great heights.
void expectSurface(const QImage& picture);
/// The picture has the colours of the first two lines.
void expectLines(const QImage& picture);
/// How many pixels a surface covers: all that are neither white nor grey.
int plotPixels(const QImage& picture);

} // namespace velmora::test
