#include "tests/platform/export/FakeImageService.h"

#include "engine/VelEng.h"
#include "exception/ExceptionBase.h"

#include <algorithm>

namespace velmora::test {

using sdk::integration::OffscreenImageInterface;

class FakeImageService::Image : public FakeImage {
public:
    Image(FakeImageService& owner, int width, int height) : FakeImage(width, height), m_owner(owner) {}
    bool render(sdk::integration::ExportRegion_e region) override
    {
        m_owner.drawn.emplace_back(width(), height());
        return FakeImage::render(region) || m_owner.answersAlways;
    }

private:
    FakeImageService& m_owner;
};

FakeImageService::FakeImageService()
{
    const VelEngOffscreenImageCallbacks callbacks = {create, readRow, destroy};
    VelEngOffscreenImageRegisterCallbacks(&callbacks, reinterpret_cast<long>(this));
}

FakeImageService::~FakeImageService()
{
    VelEngOffscreenImageRegisterCallbacks(nullptr, 0);
}

OffscreenImageInterface* FakeImageService::create(int width, int height, int, long clientData)
{
    auto* const self = reinterpret_cast<FakeImageService*>(clientData);
    if (width > self->largestSide || height > self->largestSide)
        throw ExceptionBase(
            "The image size " + std::to_string(width) + "x" + std::to_string(height) + " exceeds the maximum.", false);
    self->created.emplace_back(width, height);
    if (self->createsNull)
        return nullptr;
    auto image = std::make_unique<Image>(*self, width + self->sizeError, height);
    image->surface.worksAtAll = self->contextWorks;
    self->mostAlive = std::max(self->mostAlive, ++self->alive);
    return image.release();
}

int FakeImageService::readRow(OffscreenImageInterface* image, int row, unsigned char* red, unsigned char* green,
                              unsigned char* blue, long clientData)
{
    auto* const self = reinterpret_cast<FakeImageService*>(clientData);
    if (row >= self->rowsReadable)
        return 0;
    if (self->m_cached.empty())
        self->m_cached = dynamic_cast<FakeImage*>(image)->surface.bytes();
    const auto width = static_cast<std::size_t>(image->width());
    const unsigned char* pixel =
        self->m_cached.data() + width * 4 * static_cast<std::size_t>(image->height() - 1 - row);
    for (std::size_t x = 0; x < width; ++x, pixel += 4) {
        red[x] = pixel[0];
        green[x] = pixel[1];
        blue[x] = pixel[2];
    }
    return 1;
}

void FakeImageService::destroy(OffscreenImageInterface* image, long clientData)
{
    auto* const self = reinterpret_cast<FakeImageService*>(clientData);
    self->m_cached.clear();
    if (image)
        --self->alive;
    delete image;
}

} // namespace velmora::test
