#include "exception/ExceptionBase.h"

#include <gtest/gtest.h>
#include <stdexcept>

using velmora::ExceptionBase;

TEST(ExceptionBase, CarriesItsMessage)
{
    const ExceptionBase exception("Failed to create an offscreen image.", false);
    EXPECT_STREQ("Failed to create an offscreen image.", exception.what());
    EXPECT_EQ("Failed to create an offscreen image.", exception.message());
}

TEST(ExceptionBase, TellsWhetherItWasLogged)
{
    EXPECT_FALSE(ExceptionBase("a").isLogged());
    EXPECT_TRUE(ExceptionBase("a", true).isLogged());
}

TEST(ExceptionBase, IsCaughtAsAStandardException)
{
    try {
        throw ExceptionBase("caught");
    } catch (const std::exception& exception) {
        EXPECT_STREQ("caught", exception.what());
    }
}
