// What the engine hears of an off-screen image service that fails.
#include "FakeServices.h"

#include "engine/VelEng.h"
#include "exception/ExceptionBase.h"

#include <gmock/gmock.h>
#include <stdexcept>

using namespace velmora::tests;
using velmora::ExceptionBase;

namespace {

const VelEngOffscreenImageCallbacks* engineHas = nullptr;

} // namespace

// Stands before the engine's own for everybody in this process.
void VelEngOffscreenImageRegisterCallbacks(const VelEngOffscreenImageCallbacks* callbacks, long)
{
    engineHas = callbacks;
}

namespace {

struct FailingService : public FakeOffscreenImageService {
    OffscreenImageInterface* imageCreate(int, int, ImageRenderingStrategy_e) override
    {
        fail();
        return nullptr;
    }
    std::function<void()> fail;
};

std::string messageFor(const std::function<void()>& failure)
{
    FailingService service;
    service.fail = failure;
    service.registerCallbacks();
    service.makeCurrent();
    try {
        engineHas->imageCreate(1, 1, 0, 0);
    } catch (const ExceptionBase& exception) {
        return exception.what();
    }
    return "no exception";
}

} // namespace

TEST(OffscreenCallbacks, WhateverTheServiceThrowsArrivesAsTheOneKindThatTheEngineTakes)
{
    EXPECT_EQ("of our own", messageFor([] { throw ExceptionBase("of our own", false); }));
    EXPECT_EQ("of the library", messageFor([] { throw std::runtime_error("of the library"); }));
    EXPECT_EQ("The off-screen image service failed for an unknown reason.", messageFor([] { throw 42; }));
}

TEST(OffscreenCallbacks, WithoutAServiceThereIsNoImage)
{
    messageFor([] {});
    EXPECT_EQ(nullptr, engineHas->imageCreate(1, 1, 0, 0));
}
