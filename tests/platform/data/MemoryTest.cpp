#include "engine/core/Checkpoint.h"
#include "engine/data/DataReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <malloc.h>
#include <new>
#include <unistd.h>

using namespace velmora::engine;

namespace {

std::size_t inUse = 0;
std::size_t peak = 0;
std::size_t largest = 0;
std::size_t limit = std::numeric_limits<std::size_t>::max(); ///< for one piece

void* take(std::size_t size)
{
    void* const memory = size > limit ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    inUse += malloc_usable_size(memory);
    peak = std::max(peak, inUse);
    largest = std::max(largest, size);
    return memory;
}

void give(void* memory)
{
    inUse -= memory ? malloc_usable_size(memory) : 0;
    std::free(memory);
}

/// The most heap that reading a file took beyond what was in use before.
template <class Read>
std::size_t peakOf(Read read)
{
    const std::size_t before = inUse;
    peak = inUse;
    largest = 0;
    read();
    return peak - before;
}

std::string newFileName()
{
    char name[] = "/tmp/velmora-memory-XXXXXX";
    close(mkstemp(name));
    return name;
}

std::string writeGrid(int size)
{
    const std::string name = newFileName();
    std::ofstream file(name, std::ios::binary);
    file << "ncols " << size << "\nnrows " << size << "\nxllcorner 0\nyllcorner 0\ncellsize 1\n";
    std::string row;
    for (int i = 0; i < size; ++i)
        row += std::to_string(i) + ".5 ";
    for (int i = 0; i < size; ++i)
        file << row << '\n';
    return name;
}

} // namespace

void* operator new(std::size_t size)
{
    return take(size);
}

void* operator new[](std::size_t size)
{
    return take(size);
}

void operator delete(void* memory) noexcept
{
    give(memory);
}

void operator delete[](void* memory) noexcept
{
    give(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    give(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    give(memory);
}

TEST(GridMemory, AGridOf4000By4000TakesNoMoreThanItsValuesAndASmallBuffer)
{
    constexpr std::size_t ValueBytes = 4000ul * 4000ul * sizeof(float);
    const std::string name = writeGrid(4000);
    NoCheckpoint checkpoint;
    DataSet data;
    const std::size_t used = peakOf([&] { data = readDataFile(name, checkpoint); });
    std::remove(name.c_str());
    const auto grid = std::get<std::shared_ptr<const Grid>>(data);
    ASSERT_EQ(grid->values.size() * sizeof(float), ValueBytes);
    EXPECT_EQ(grid->at(3999, 3999), 3999.5F);
    EXPECT_GE(used, ValueBytes);
    EXPECT_LE(used, ValueBytes + 64 * 1024);
    RecordProperty("peakToValues", std::to_string(static_cast<double>(used) / ValueBytes));
}

TEST(GridMemory, SizesBeyondTheFileAreRefusedBeforeAnythingOfThatSizeIsAllocated)
{
    const std::string name = newFileName();
    std::ofstream(name) << "ncols 30000\nnrows 30000\nxllcorner 0\nyllcorner 0\ncellsize 1\n1 2 3\n";
    NoCheckpoint checkpoint;
    const std::size_t used = peakOf([&] { EXPECT_THROW(readDataFile(name, checkpoint), ReadError); });
    std::remove(name.c_str());
    EXPECT_LE(largest, 64u * 1024);
    EXPECT_LE(used, 128u * 1024);
}

TEST(GridMemory, AGridThatDoesNotFitIsRefused)
{
    const std::string name = writeGrid(1000);
    NoCheckpoint checkpoint;
    limit = 1024ul * 1024;
    std::string error;
    try {
        readDataFile(name, checkpoint);
    } catch (const ReadError& refused) {
        error = refused.what();
    }
    limit = std::numeric_limits<std::size_t>::max();
    std::remove(name.c_str());
    EXPECT_EQ(error, "\"" + name + "\" does not fit into memory. Close other programs, or read a part of the data.");
}

TEST(TableMemory, ALongTableIsNotMovedWhileItGrows)
{
    constexpr std::size_t Rows = 300000;
    constexpr std::size_t ValueBytes = Rows * 2 * sizeof(double);
    const std::string name = newFileName();
    {
        std::ofstream file(name, std::ios::binary);
        for (std::size_t row = 0; row < Rows; ++row)
            file << 1000000 + row << ',' << row % 10 << ".5\n";
    }
    NoCheckpoint checkpoint;
    DataSet data;
    const std::size_t used = peakOf([&] { data = readDataFile(name, checkpoint); });
    std::remove(name.c_str());
    EXPECT_EQ(std::get<std::shared_ptr<const Table>>(data)->columns[1].values.size(), Rows);
    EXPECT_LE(used, ValueBytes * 5 / 4 + 64 * 1024);
}
