#include "engine/data/TextSource.h"
#include "tests/platform/data/ReadSupport.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

using namespace velmora::engine;
using namespace velmora::engine::test;
using testing::AllOf;
using testing::HasSubstr;

namespace {

std::string errorOfFile(const std::string& fileName)
{
    CountingCheckpoint checkpoint;
    try {
        readDataFile(fileName, checkpoint);
    } catch (const ReadError& error) {
        return error.what();
    }
    return std::string();
}

std::string gridOf(int size)
{
    std::string text = "ncols " + std::to_string(size) + "\nnrows " + std::to_string(size) +
                       "\nxllcorner 0\nyllcorner 0\ncellsize 1\n";
    for (int i = 0; i < size * size; ++i)
        text += std::to_string(i % 1000) + (i % 10 == 9 ? "\n" : " ");
    return text;
}

std::string tableOf(int rows)
{
    std::string text = "t,v\n";
    for (int i = 0; i < rows; ++i)
        text += std::to_string(i) + "," + std::to_string(i * 2) + "\n";
    return text;
}

/// Delivers few bytes at a time, and then fails.
class FailingStream : public ByteStream {
public:
    std::size_t read(char* buffer, std::size_t) override
    {
        if (m_count == 100)
            throw ReadError("the disk is gone");
        buffer[0] = m_count % 2 == 0 ? '1' : '\n';
        ++m_count;
        return 1;
    }
    std::uint64_t size() const override { return 1000; }

private:
    int m_count = 0;
};

} // namespace

TEST(DataFile, TheContentTellsWhatItIsNotTheName)
{
    const TemporaryFile grid(gridOf(3));
    const TemporaryFile table(tableOf(3));
    CountingCheckpoint checkpoint;
    EXPECT_TRUE(std::holds_alternative<std::shared_ptr<const Grid>>(readDataFile(grid.name(), checkpoint)));
    const DataSet data = readDataFile(table.name(), checkpoint);
    EXPECT_EQ("/tmp/" + std::get<std::shared_ptr<const Table>>(data)->name, table.name());
}

TEST(DataFile, AMissingFileIsNamed)
{
    EXPECT_THAT(errorOfFile("/tmp/no/such/file.asc"),
                AllOf(HasSubstr("\"/tmp/no/such/file.asc\" does not exist"), HasSubstr("Check the name")));
    const TemporaryFile file("1");
    EXPECT_THAT(errorOfFile(file.name() + "/below"), HasSubstr("does not exist"));
}

TEST(DataFile, AFolderIsRefused)
{
    EXPECT_THAT(errorOfFile("/tmp"), AllOf(HasSubstr("\"/tmp\" is a folder"), HasSubstr("Choose a file")));
}

TEST(DataFile, DevicesAndPipesAreRefusedWithoutWaiting)
{
    EXPECT_THAT(errorOfFile("/dev/zero"), HasSubstr("is a device or a pipe"));
    const TemporaryFile file("");
    const std::string pipe = file.name() + ".pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THAT(errorOfFile(pipe), HasSubstr("is a device or a pipe"));
    std::remove(pipe.c_str());
}

TEST(DataFile, AFileWithoutPermissionIsRefused)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "The superuser may read everything.";
    const TemporaryFile file("1,2\n");
    ASSERT_EQ(chmod(file.name().c_str(), 0), 0);
    EXPECT_THAT(errorOfFile(file.name()), AllOf(HasSubstr("may not be read"), HasSubstr("permission")));
}

TEST(DataFile, ALinkToItselfCannotBeOpened)
{
    const TemporaryFile file("");
    const std::string link = file.name() + ".link";
    ASSERT_EQ(symlink(link.c_str(), link.c_str()), 0);
    EXPECT_THAT(errorOfFile(link), AllOf(HasSubstr("cannot be opened"), HasSubstr("Choose another file")));
    std::remove(link.c_str());
}

TEST(DataFile, AnEmptyFileIsRefused)
{
    const TemporaryFile file("");
    EXPECT_THAT(errorOfFile(file.name()), HasSubstr("is empty"));
}

TEST(DataFile, AFailureOfTheDiskIsPassedOn)
{
    FailingStream stream;
    CountingCheckpoint checkpoint;
    EXPECT_THROW(readData(stream, "x", checkpoint), ReadError);
}

struct Sample {
    const char* name;
    std::string text;
};

void PrintTo(const Sample& sample, std::ostream* stream)
{
    *stream << sample.name;
}

std::string named(const testing::TestParamInfo<Sample>& info)
{
    return info.param.name;
}

class Reading : public testing::TestWithParam<Sample> {};

TEST_P(Reading, GoesInSmallPortionsWithAGrowingFraction)
{
    const TemporaryFile file(GetParam().text);
    CountingCheckpoint checkpoint;
    readDataFile(file.name(), checkpoint);
    EXPECT_GE(checkpoint.fractions.size(), GetParam().text.size() / TextSource::BlockSize);
    EXPECT_TRUE(std::is_sorted(checkpoint.fractions.begin(), checkpoint.fractions.end()));
    EXPECT_EQ(checkpoint.fractions.front(), 0);
    checkpoint.fractions.push_back(1);
    for (std::size_t i = 1; i < checkpoint.fractions.size(); ++i) {
        EXPECT_LE((checkpoint.fractions[i] - checkpoint.fractions[i - 1]) * static_cast<double>(GetParam().text.size()),
                  TextSource::BlockSize + 1.0);
    }
}

TEST_P(Reading, StopsWhereverItIsTold)
{
    CountingCheckpoint whole;
    const TemporaryFile file(GetParam().text);
    readDataFile(file.name(), whole);
    for (std::size_t stop = 0; stop < whole.fractions.size(); ++stop) {
        CountingCheckpoint checkpoint(static_cast<int>(stop));
        EXPECT_THROW(readDataFile(file.name(), checkpoint), ReadInterrupted);
        EXPECT_EQ(checkpoint.fractions.size(), stop + 1) << "asked again after it was told to stop";
    }
}

INSTANTIATE_TEST_SUITE_P(DataFile, Reading,
                         testing::Values(Sample{"SmallGrid", gridOf(2)}, Sample{"Grid", gridOf(200)},
                                         Sample{"SmallTable", tableOf(3)}, Sample{"Table", tableOf(20000)},
                                         Sample{"EmptyLines", "1\n" + std::string(60000, '\n') + "2\n"},
                                         Sample{"LongRemark", "#" + std::string(60000, 'x') + "\n1,2"}),
                         named);
