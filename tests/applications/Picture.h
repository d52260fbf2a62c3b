#pragma once

#include <vector>

namespace velmora::test {

/// What is to be seen on a screen: four bytes a pixel, row by row.
using Picture = std::vector<unsigned char>;

/// Whether two pictures of one size show the same. Left to itself, too, the toolkit at times forgets to take back
/// the look of what the pointer has left, a shade of up to 10 of 255, and some marks of a slider, up to 22 pixels;
/// that much is allowed. Text and whole widgets are more.
bool lookAlike(const Picture& a, const Picture& b);

} // namespace velmora::test
