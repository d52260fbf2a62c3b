#include "tests/platform/data/ReadSupport.h"

#include <gmock/gmock.h>

using namespace velmora::engine;
using namespace velmora::engine::test;
using testing::AllOf;
using testing::Each;
using testing::HasSubstr;

namespace {

/// Of characters up to U+FFFF, in UTF-8, one unit each; `high` is where the high byte comes.
std::string utf16Of(const std::u16string& text, std::size_t high)
{
    std::string bytes;
    for (const char16_t unit : text) {
        const char both[] = {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
        bytes += both[high];
        bytes += both[1 - high];
    }
    return bytes;
}

std::u16string wideTable(int rows)
{
    std::u16string text = u"\uFEFFdate,temp °C,😀\n";
    for (int row = 0; row < rows; ++row)
        text += u"2024-01-01,-1.5,😀é€\n";
    return text;
}

/// Gives one byte at a time.
class SlowStream : public ByteStream {
public:
    explicit SlowStream(const std::string& bytes) : m_bytes(bytes) {}
    std::size_t read(char* buffer, std::size_t capacity) override { return m_bytes.read(buffer, capacity > 0 ? 1 : 0); }
    std::uint64_t size() const override { return m_bytes.size(); }

private:
    MemoryByteStream m_bytes;
};

} // namespace

TEST(Encoding, Utf16IsReadInEitherOrderOfBytes)
{
    for (const std::size_t high : {0u, 1u}) {
        const Table table = readTable(utf16Of(wideTable(20000), high));
        EXPECT_EQ(table.columns[1].name, "temp °C");
        EXPECT_EQ(table.columns[1].values.size(), 20000u);
        EXPECT_THAT(table.columns[1].values, Each(-1.5));
        EXPECT_EQ(table.summaries[2].name, "😀");
    }
}

TEST(Encoding, PairsOfUtf16StayWholeWhereverTheyStand)
{
    for (const char16_t* const before : {u"\uFEFF", u"\uFEFFx"}) {
        std::u16string name(before);
        std::string expected(name.size() - 1, 'x');
        for (int i = 0; i < 5000; ++i) {
            name += u"😀";
            expected += "😀";
        }
        EXPECT_EQ(readTable(utf16Of(name + u",v\n1,2\n", 1)).columns[0].name, expected);
    }
}

TEST(Encoding, ATextThatEndsWithinACharacterIsLatin1)
{
    EXPECT_THAT(readTable("a,b\n1,2\n3,4\n5,\xC3").notes,
                testing::Contains(HasSubstr("'\xC3\x83' in line 4 is no number")));
}

TEST(Encoding, HalfAPairAndHalfAUnitOfUtf16DoNoHarm)
{
    const std::string text = utf16Of(u"\uFEFFa,b", 1) + std::string("\x3D\xD8", 2) + utf16Of(u"\n1,2\n", 1) + "3";
    EXPECT_EQ(readTable(text).columns[1].name, "b\xEF\xBF\xBD");
}

TEST(Encoding, WhatIsNotUtf8IsTakenForLatin1WithANote)
{
    const Table table = readTable("temp \xB0"
                                  "C,price \x80\n1,2\n");
    EXPECT_EQ(table.columns[0].name, "temp °C");
    EXPECT_EQ(table.columns[1].name, "price €");
    EXPECT_THAT(table.notes, testing::ElementsAre(HasSubstr("is not UTF-8 and is taken for Latin-1")));
}

TEST(Encoding, Utf8NeedsNoMarkAndNoNote)
{
    const Table table = readTable("temp °C,v €,😀\n1,2,3\n");
    EXPECT_EQ(table.columns[2].name, "😀");
    EXPECT_TRUE(table.notes.empty());
}

TEST(Encoding, TheFirstByteThatIsNotAsciiMayComeLateAndAtAnyPlaceOfABlock)
{
    for (std::size_t before = 32760; before < 32772; ++before) {
        const std::string start = "v\n" + std::string(before - 4, '\n') + "1\n";
        EXPECT_EQ(readTable(start + "2°\n3\n").summaries[0].gaps, 1u) << before;
        const Table latin = readTable(start + "2\xB0\n3\n");
        EXPECT_THAT(latin.notes, testing::Contains(HasSubstr("'2°'"))) << before;
    }
}

TEST(Encoding, AStreamOfSingleBytesIsReadTheSame)
{
    for (const std::string& text : {std::string("temp °C,v\n1,2\n"),
                                    std::string("temp \xB0"
                                                "C,v\n1,2\n"),
                                    utf16Of(u"\uFEFFtemp °C,v\n1,2\n", 0)}) {
        SlowStream stream(text);
        CountingCheckpoint checkpoint;
        const DataSet data = readData(stream, "x", checkpoint);
        EXPECT_EQ(std::get<std::shared_ptr<const Table>>(data)->columns[0].name, "temp °C");
    }
}

struct BinaryFile {
    std::string bytes;
    const char* name;
    const char* remedy;
};

TEST(BinaryFile, IsNamedWithWhatToSaveInstead)
{
    const std::vector<BinaryFile> files = {
        {std::string("PK\x03\x04\x14\0", 6), "Excel or OpenDocument workbook", "save the sheet as CSV"},
        {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", "workbook (.xls)", "save the sheet as CSV"},
        {"CDF\x01", "NetCDF", "ESRI ASCII grid"},
        {"\x89HDF\r\n\x1A\n", "NetCDF 4 or HDF5", "ESRI ASCII grid"},
        {std::string("II*\0\x08", 5), "GeoTIFF", "ESRI ASCII grid"},
        {std::string("MM\0*\0", 5), "GeoTIFF", "ESRI ASCII grid"},
        {"\x1F\x8B\x08", "gzip", "Unpack it"},
        {"BZh91AY&SY", "bzip2", "Unpack it"},
        {std::string("\xFD"
                     "7zXZ\0",
                     6),
         "xz", "Unpack it"},
        {"\x28\xB5\x2F\xFD", "zstd", "Unpack it"},
        {"PAR1\x15", "Parquet", "as CSV"},
        {std::string("SQLite format 3\0", 16), "SQLite", "as CSV"},
        {"\x89PNG\r\n\x1A\n", "PNG", "the numbers"},
        {"\xFF\xD8\xFF\xE0", "JPEG", "the numbers"},
        {"%PDF-1.7", "PDF", "the numbers"},
    };
    for (const BinaryFile& file : files) {
        EXPECT_THAT(errorOf(file.bytes),
                    AllOf(HasSubstr("\"folder/sample.txt\" is "), HasSubstr(file.name), HasSubstr(file.remedy)));
    }
    EXPECT_EQ(errorOf("PAR1,PAR2\n1,2\n"), "");
}
