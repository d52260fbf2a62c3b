// Handing rows on to another thread.

#include "engine/export/RowsBehind.h"

#include <atomic>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

namespace velmora::engine {
namespace {

constexpr std::size_t RowBytes = 3000;

std::vector<unsigned char> rowOf(int row)
{
    return std::vector<unsigned char>(RowBytes, static_cast<unsigned char>(row * 7));
}

class RecordingSink final : public RowSink {
public:
    void takeRow(int row, const unsigned char* rgb) override
    {
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_opened.wait(lock, [this] { return m_isOpen; });
        }
        if (row == failsAt)
            throw std::runtime_error("the sink is full");
        isInOrder = isInOrder && row == rows;
        isComplete = isComplete && std::vector<unsigned char>(rgb, rgb + RowBytes) == rowOf(row);
        thread = std::this_thread::get_id();
        ++rows;
    }
    void open()
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_isOpen = true;
        }
        m_opened.notify_all();
    }

    std::atomic<int> rows{0};
    int failsAt = -1;
    bool isInOrder = true;
    bool isComplete = true;
    std::thread::id thread;

private:
    std::mutex m_mutex;
    std::condition_variable m_opened;
    bool m_isOpen = false;
};

void give(RowsBehind& behind, int first, int count)
{
    for (int row = first; row < first + count; ++row) {
        while (!behind.hasRoom())
            continue;
        behind.takeRow(row, rowOf(row).data());
    }
}

TEST(RowsBehind, EveryRowArrivesInOrderAndOnAnotherThread)
{
    RecordingSink sink;
    sink.open();
    RowsBehind behind(sink, RowBytes, 500);
    give(behind, 0, 1999);
    while (!behind.isDone())
        continue;
    EXPECT_EQ(sink.rows, 1999);
    EXPECT_TRUE(sink.isInOrder);
    EXPECT_TRUE(sink.isComplete);
    EXPECT_NE(sink.thread, std::this_thread::get_id());
}

TEST(RowsBehind, NoMoreRowsAreHeldThanAllowed)
{
    RecordingSink sink;
    RowsBehind behind(sink, RowBytes, 500);
    int row = 0;
    for (; row < 5000 && behind.hasRoom(); ++row)
        behind.takeRow(row, rowOf(row).data());
    EXPECT_GE(row, 500);
    EXPECT_LE(row, 700) << "the rows allowed, and those that are handed over together";
    EXPECT_FALSE(behind.isDone());
    sink.open();
    give(behind, row, 100);
    while (!behind.isDone())
        continue;
    EXPECT_EQ(sink.rows, row + 100);
}

TEST(RowsBehind, WhatTheSinkThrowsComesOutOnTheOwnersThread)
{
    RecordingSink sink;
    sink.open();
    sink.failsAt = 150;
    RowsBehind behind(sink, RowBytes, 200);
    EXPECT_THROW(
        {
            give(behind, 0, 5000);
            while (!behind.isDone())
                continue;
        },
        std::runtime_error);
    EXPECT_EQ(sink.rows, 150);
    EXPECT_THROW(behind.isDone(), std::runtime_error) << "again";
}

TEST(RowsBehind, WhoeverGivesUpWaitsForNoRows)
{
    RecordingSink sink;
    sink.open();
    {
        RowsBehind behind(sink, RowBytes, 100000);
        give(behind, 0, 3000);
    }
    EXPECT_TRUE(sink.isInOrder);
    EXPECT_LE(sink.rows, 3000);
}

} // namespace
} // namespace velmora::engine
