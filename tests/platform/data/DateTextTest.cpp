#include "engine/data/DateText.h"
#include "engine/data/NumberText.h"

#include <gtest/gtest.h>

#include <clocale>
#include <ctime>
#include <string>

using namespace velmora::engine;

namespace {

double daysOf(const std::string& text)
{
    double days = -1e9;
    return parseDate(text, days) != DateOrder::NoDate ? days : -1e9;
}

bool isDate(const std::string& text)
{
    double days = 0;
    return parseDate(text, days) != DateOrder::NoDate;
}

} // namespace

TEST(DateText, EveryDayOfFourCenturiesFollowsTheOneBefore)
{
    for (long day = -100000; day < 100000; ++day) {
        const std::time_t seconds = day * 86400;
        std::tm parts = {};
        gmtime_r(&seconds, &parts);
        char text[32];
        std::strftime(text, sizeof text, "%Y-%m-%d", &parts);
        ASSERT_EQ(daysOf(text), static_cast<double>(day)) << text;
    }
}

TEST(DateText, TheTimeOfDayIsAFraction)
{
    EXPECT_EQ(daysOf("1970-01-02T12:00"), 1.5);
    EXPECT_EQ(daysOf("1970-01-02 18:00:00"), 1.75);
    EXPECT_EQ(daysOf("1970-01-01T00:00:43.2Z"), 43.2 / 86400);
    EXPECT_EQ(daysOf("1970-01-01T23:59:59Z"), 86399.0 / 86400);
    EXPECT_EQ(daysOf("0000-01-01"), -719528);
}

TEST(DateText, ATimeWithAnOffsetIsMadeOneInUtc)
{
    for (const char* text : {"1970-01-01T12:00Z", "1970-01-01 12:00 UTC", "1970-01-01 14:00+02:00",
                             "1970-01-01T08:30:00-0330", "1970-01-01 11:00:00,000 -01", "1970-01-02 01:00+13:00"})
        EXPECT_EQ(daysOf(text), 0.5) << text;
}

TEST(DateText, TheOrderOfDayAndMonthIsToldWhereItCanBe)
{
    double days = 0;
    EXPECT_EQ(parseDate("1970/01/02", days), DateOrder::Certain);
    EXPECT_EQ(days, 1);
    EXPECT_EQ(parseDate("1970-02", days), DateOrder::Certain);
    EXPECT_EQ(days, 31);
    EXPECT_EQ(parseDate("2.1.1970 12:00", days), DateOrder::Certain);
    EXPECT_EQ(days, 1.5);
    EXPECT_EQ(parseDate("02/01/1970", days), DateOrder::Either);
    EXPECT_EQ(days, 1);
    EXPECT_EQ(withDayAndMonthSwapped(1.25), 31.25);
    EXPECT_EQ(parseDate("13/01/1970", days), DateOrder::DayFirst);
    EXPECT_EQ(days, 12);
    EXPECT_EQ(parseDate("01-13-1970", days), DateOrder::MonthFirst);
    EXPECT_EQ(days, 12);
}

TEST(DateText, ADateIsWrittenAsShortAsItCanBe)
{
    EXPECT_EQ(dateText(-1), "1969-12-31");
    EXPECT_EQ(dateText(-0.25), "1969-12-31 18:00:00");
    EXPECT_EQ(dateText(19727 + 36000.123 / 86400), "2024-01-05 10:00:00.123");
}

TEST(DateText, WhatIsNoDateIsRefused)
{
    for (const char* text : {"",
                             "1970",
                             "1970-1",
                             "1970/01",
                             "1970-01T12:00",
                             "1970-1-1",
                             "70-01-01",
                             "1970-13-01",
                             "1970-00-01",
                             "1970-04-31",
                             "1900-02-29",
                             "2023-02-29",
                             "1970-01-00",
                             "1970/01-01",
                             "32.01.1970",
                             "13/13/1970",
                             "29/02/2023",
                             "1/1/70",
                             "1.1/1970",
                             "1970-01-01T",
                             "1970-01-01T24:00",
                             "1970-01-01T12",
                             "1970-01-01T12:60",
                             "1970-01-01T12:00:60",
                             "1970-01-01T12:00:00.",
                             "1970-01-01T12:00Zx",
                             "1970-01-01 ",
                             "1970-01-01x",
                             "1970-01-0a",
                             "+970-01-01",
                             "1970-01-01T12:00+1",
                             "1970-01-01T12:00+19:00",
                             "1970-01-01T12:00+01:60",
                             "1970-01-01T12:00 ",
                             "1970-01-01T12:00 CET"})
        EXPECT_FALSE(isDate(text)) << text;
    EXPECT_TRUE(isDate("2024-02-29"));
    EXPECT_TRUE(isDate("2000-02-29"));
}

TEST(NumberText, TheDecimalPointDoesNotDependOnTheLocale)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"de_DE.UTF-8", "fr_FR.UTF-8", "C"}) {
        if (std::setlocale(LC_ALL, locale)) {
            double value = 0;
            EXPECT_EQ(parseNumber("1.5", value), NumberText::Number) << locale;
            EXPECT_EQ(value, 1.5) << locale;
            EXPECT_EQ(parseNumber("1,5", value), NumberText::Word) << locale;
        }
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(NumberText, OnlyAWholeTextIsANumber)
{
    double value = 0;
    for (const char* text : {"", "+", "-", ".", "e5", "1e", "1e5x", "++1", "+-1", "-+1", "1 2", "0x10", "1_000", " 1"})
        EXPECT_EQ(parseNumber(text, value), NumberText::Word) << text;
    for (const char* text : {"nan", "NaN", "-nan", "inf", "+inf", "-Infinity"})
        EXPECT_EQ(parseNumber(text, value), NumberText::NotFinite) << text;
    for (const char* text : {"1", "+1", "1.", "1.0", "01", "10e-1", "0.1E1"}) {
        value = 0;
        EXPECT_EQ(parseNumber(text, value), NumberText::Number) << text;
        EXPECT_EQ(value, 1) << text;
    }
}

TEST(NumberText, TooLargeAndTooSmallAreToldApart)
{
    float value = 7;
    for (const std::string& text : {std::string("1e39"), std::string("-1E+400"), "1" + std::string(60, '0')})
        EXPECT_EQ(parseNumber(text, value), NumberText::TooLarge) << text;
    for (const std::string& text : {std::string("1e-60"), std::string("-1E-400"), "." + std::string(60, '0') + "1"}) {
        value = 7;
        EXPECT_EQ(parseNumber(text, value), NumberText::Number) << text;
        EXPECT_EQ(value, 0) << text;
    }
}
