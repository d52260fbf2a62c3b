#include "tests/applications/Record.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

#include <unistd.h>

namespace velmora::test {

namespace {

using Lines = std::vector<std::string>;

Lines read(const Lines& written)
{
    char name[] = "/tmp/record_XXXXXX";
    close(mkstemp(name));
    std::ofstream file(name);
    for (const std::string& line : written)
        file << line << '\n';
    file.close();
    const Lines lines = readRecord(name);
    unlink(name);
    return lines;
}

} // namespace

TEST(Record, TheOrderBetweenWidgetsIsLeftToChance)
{
    EXPECT_EQ(read({"-- 1", "Show W/a", "KeyPress W/b key 1"}), read({"-- 1", "KeyPress W/b key 1", "Show W/a"}));
}

TEST(Record, TheOrderOfTheEventsOfAWidgetCounts)
{
    EXPECT_NE(read({"KeyPress W key 1", "KeyPress W key 2"}), read({"KeyPress W key 2", "KeyPress W key 1"}));
    EXPECT_NE(read({"Show W", "Hide W"}), read({"Hide W", "Show W"}));
}

TEST(Record, EventsStayInTheirGesture)
{
    EXPECT_NE(read({"-- 1", "Show W", "-- 2", "Hide V"}), read({"-- 1", "Hide V", "-- 2", "Show W"}));
}

TEST(Record, WhatWaitsInTheQueueMayComeBeforeOrAfterInput)
{
    EXPECT_EQ(read({"MetaCall W", "MouseButtonRelease W at 1,1"}), read({"MouseButtonRelease W at 1,1", "MetaCall W"}));
    EXPECT_NE(read({"MetaCall W"}), read({"MetaCall W", "MetaCall W"}));
}

TEST(Record, OfWhatIsToldAgainTheLastCounts)
{
    EXPECT_EQ(read({"Move W", "Resize W", "Move W"}), read({"Resize W", "Move W"}));
    EXPECT_NE(read({"Move W"}), read({"Resize W"}));
}

TEST(Record, ARepeatedKeyIsNotTakenForOne)
{
    EXPECT_NE(read({"KeyPress W key 1"}), read({"KeyPress W key 1", "KeyPress W key 1"}));
}

} // namespace velmora::test
