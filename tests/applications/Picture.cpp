#include "tests/applications/Picture.h"

#include <cstdlib>
#include <utility>

#include <poll.h>

namespace velmora::test {

namespace {

constexpr int LeastDifference = 16;
constexpr int MostDifferingPixels = 100;
constexpr std::size_t BytesPerPixel = 4;

} // namespace

bool lookAlike(const Picture& a, const Picture& b)
{
    if (a.size() != b.size())
        return false;
    int differing = 0;
    for (std::size_t pixel = 0; pixel + BytesPerPixel <= a.size(); pixel += BytesPerPixel) {
        bool differs = false;
        for (std::size_t i = pixel; i < pixel + BytesPerPixel; ++i)
            differs = differs || std::abs(int(a[i]) - int(b[i])) > LeastDifference;
        differing += differs ? 1 : 0;
    }
    return differing <= MostDifferingPixels;
}

LastLook lookUntilStill(const std::function<Picture()>& look, const Stillness& wanted)
{
    Picture last = look();
    int same = 0;
    for (int i = 0; i < wanted.mostLooks && same < wanted.sameLooks; ++i) {
        poll(nullptr, 0, wanted.pauseMilliseconds);
        Picture next = look();
        same = next == last ? same + 1 : 0;
        last = std::move(next);
    }
    return {std::move(last), same >= wanted.sameLooks};
}

} // namespace velmora::test
