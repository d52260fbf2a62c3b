#include "base/AppLock.h"

#include "exception/ExceptionBase.h"
#include "testing/EngineProbe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using velmora::sdk::AppLock;
using velmora::testing::EngineProbe;
using Recording = velmora::sdk::AppLock::ImplicitMacroRecording;

namespace {

class AppLocks : public ::testing::Test {
protected:
    void TearDown() override { EngineProbe::reset(); }
};

} // namespace

TEST_F(AppLocks, NestAndAreReleasedOneByOne)
{
    EXPECT_EQ(0, AppLock::depth());
    {
        const AppLock outer(Recording::Off);
        EXPECT_EQ(1, AppLock::depth());
        {
            const AppLock inner(Recording::On);
            EXPECT_EQ(2, AppLock::depth());
        }
        EXPECT_EQ(1, AppLock::depth());
    }
    EXPECT_EQ(0, AppLock::depth());
}

TEST_F(AppLocks, TellTheLogHowTheyRecord)
{
    EngineProbe::startLog();
    {
        const AppLock outer(Recording::Off);
        const AppLock inner(Recording::On);
    }
    EXPECT_THAT(EngineProbe::log(), ::testing::ElementsAre("AppLock 0", "AppLock 1", "~AppLock", "~AppLock"));
}

TEST_F(AppLocks, AreReleasedWhenAnExceptionPasses)
{
    try {
        const AppLock lock(Recording::Off);
        throw velmora::ExceptionBase("out");
    } catch (const velmora::ExceptionBase&) {
        EXPECT_EQ(0, AppLock::depth());
    }
}

TEST_F(AppLocks, AreNotHeldWhenTakingThemFails)
{
    EngineProbe::throwAt("AppLock");
    EXPECT_THROW(AppLock(Recording::Off), velmora::ExceptionBase);
    EXPECT_EQ(0, AppLock::depth());
}
