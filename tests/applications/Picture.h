#pragma once

#include <functional>
#include <vector>

namespace velmora::test {

/// What is to be seen on a screen: four bytes a pixel, row by row.
using Picture = std::vector<unsigned char>;

/// Whether two pictures of one size show the same. Left to itself, too, the toolkit at times forgets to take back
/// the look of what the pointer has left, a shade of up to 10 of 255, and some marks of a slider, up to 22 pixels;
/// that much is allowed. Text and whole widgets are more.
bool lookAlike(const Picture& a, const Picture& b);

/// How to wait until a picture stands still.
struct Stillness {
    int sameLooks; ///< that must follow the first one
    int mostLooks; ///< after the first one
    int pauseMilliseconds;
};

/// What `look` shows last, and whether it has come to stand still.
struct LastLook {
    Picture picture;
    bool isStill;
};
LastLook lookUntilStill(const std::function<Picture()>& look, const Stillness& wanted);

} // namespace velmora::test
