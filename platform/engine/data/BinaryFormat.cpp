#include "engine/data/BinaryFormat.h"

#include <algorithm>
#include <iterator>

namespace velmora::engine {

namespace {

using namespace std::string_view_literals;

constexpr auto SaveAsCsv = "In the spreadsheet program, save the sheet as CSV and open that";
constexpr auto Unpack = "Unpack it and open the file that is in it";
constexpr auto ExportGrid = "Convert it to an ESRI ASCII grid (gdal_translate -of AAIGrid) and open that";
constexpr auto ExportTable = "Export the table as CSV from the program that made it and open that";
constexpr auto NotAPicture = "Choose the file with the numbers that the picture was made from";

const BinaryFormat formats[] = {
    {"PK\x03\x04"sv, "an Excel or OpenDocument workbook (.xlsx, .ods) or another ZIP archive",
     "In the spreadsheet program, save the sheet as CSV and open that; unpack an archive"},
    {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv, "an Excel workbook (.xls) or another Office document", SaveAsCsv},
    {"CDF\x01"sv, "a NetCDF file", ExportGrid},
    {"CDF\x02"sv, "a NetCDF file", ExportGrid},
    {"CDF\x05"sv, "a NetCDF file", ExportGrid},
    {"\x89HDF\r\n\x1A\n"sv, "a NetCDF 4 or HDF5 file", ExportGrid},
    {"II*\0"sv, "a GeoTIFF or another TIFF image", ExportGrid},
    {"II+\0"sv, "a GeoTIFF or another TIFF image", ExportGrid},
    {"MM\0*"sv, "a GeoTIFF or another TIFF image", ExportGrid},
    {"MM\0+"sv, "a GeoTIFF or another TIFF image", ExportGrid},
    {"\x1F\x8B"sv, "compressed by gzip", Unpack},
    {"BZh91AY&SY"sv, "compressed by bzip2", Unpack},
    {"\xFD"
     "7zXZ\0"sv,
     "compressed by xz", Unpack},
    {"\x28\xB5\x2F\xFD"sv, "compressed by zstd", Unpack},
    {"7z\xBC\xAF\x27\x1C"sv, "a 7z archive", Unpack},
    {"PAR1\x15"sv, "a Parquet file", ExportTable},
    {"SQLite format 3\0"sv, "an SQLite database", ExportTable},
    {"\x89PNG\r\n\x1A\n"sv, "a PNG image", NotAPicture},
    {"\xFF\xD8\xFF"sv, "a JPEG image", NotAPicture},
    {"GIF8"sv, "a GIF image", NotAPicture},
    {"%PDF-"sv, "a PDF document", "Choose the file with the numbers that the document was made from"},
};

} // namespace

const BinaryFormat* binaryFormatOf(std::string_view begin)
{
    const auto* const found = std::find_if(std::begin(formats), std::end(formats), [begin](const BinaryFormat& format) {
        return begin.substr(0, format.begin.size()) == format.begin;
    });
    return found == std::end(formats) ? nullptr : found;
}

} // namespace velmora::engine
