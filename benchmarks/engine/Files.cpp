#include "benchmarks/engine/Files.h"

#include "benchmarks/peers/Contender.h"

#include <cmath>
#include <cstdio>
#include <memory>

namespace velmora::benchmark {

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File newFile(const QString& name)
{
    File file(std::fopen(name.toUtf8().constData(), "w"), &std::fclose);
    if (!file)
        qFatal("%s cannot be written", name.toUtf8().constData());
    return file;
}

} // namespace

void writeGrid(const QString& fileName, int side)
{
    const Surface island = islandOf(side);
    const File file = newFile(fileName);
    std::fprintf(file.get(), "ncols %d\nnrows %d\nxllcorner 0\nyllcorner 0\ncellsize 1\n", side, side);
    int column = 0;
    for (const float height : island.heights) {
        column = column % side + 1;
        std::fprintf(file.get(), "%.5f%c", static_cast<double>(height), column == side ? '\n' : ' ');
    }
}

void writeTable(const QString& fileName, long rows)
{
    const File file = newFile(fileName);
    std::fputs("number,slow,quick,slope\n", file.get());
    for (long row = 0; row < rows; ++row) {
        const auto x = static_cast<double>(row);
        std::fprintf(file.get(), "%ld,%.4f,%.4f,%.2f\n", row, std::sin(1e-6 * x), std::cos(1e-4 * x), 0.5 * x);
    }
}

} // namespace velmora::benchmark
