// How fast the reference engine draws, exports and reads, and how that grows with what it is given. Build as Release
// and run under scripts/with-display.
//   benchmark_engine                    all of it, each in a process of its own, so that memory is its own too
//   benchmark_engine grid SIDE          heights of SIDE by SIDE points
//   benchmark_engine table ROWS

#include "benchmarks/engine/Host.h"
#include "benchmarks/engine/Measures.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>

namespace {

bool measure(const QStringList& arguments)
{
    return QProcess::execute(QCoreApplication::applicationFilePath(), arguments) == 0;
}

bool measureAll()
{
    bool kept = true;
    for (const int side : {500, 1000, 2000, 3000, 4000})
        kept = measure({QLatin1String("grid"), QString::number(side)}) && kept;
    for (const long rows : {100000L, 1000000L, 10000000L})
        kept = measure({QLatin1String("table"), QString::number(rows)}) && kept;
    return kept;
}

} // namespace

int main(int argc, char** argv)
{
    using namespace velmora::benchmark;
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3)
        return measureAll() ? 0 : 1;
    const QTemporaryDir folder;
    Host host(argc, argv);
    const bool kept = arguments[1] == QLatin1String("grid") ? measureGrid(host, folder.path(), arguments[2].toInt())
                                                            : measureTable(host, folder.path(), arguments[2].toLong());
    return kept ? 0 : 1;
}
