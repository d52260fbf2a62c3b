#include "benchmarks/engine/Files.h"
#include "benchmarks/engine/Host.h"
#include "benchmarks/engine/Measures.h"
#include "benchmarks/support/Median.h"
#include "benchmarks/support/Report.h"
#include "engine/VelUtil.h"

#include <QFile>
#include <QProcess>
#include <QTimerEvent>
#include <algorithm>

namespace velmora::benchmark {

namespace {

/// Notes how long the application waits from one of its turns to the next.
class Turns : public QObject {
public:
    Turns() { startTimer(0); }
    double longestMilliseconds() const { return m_longest; }

protected:
    void timerEvent(QTimerEvent*) override
    {
        const Clock::time_point now = Clock::now();
        if (m_last != Clock::time_point())
            m_longest = std::max(m_longest, std::chrono::duration<double, std::milli>(now - m_last).count());
        m_last = now;
    }

private:
    Clock::time_point m_last;
    double m_longest = 0;
};

/// 0 where it is not installed.
double millisecondsOfPandas(const QString& file)
{
    QProcess python;
    python.start(QLatin1String("/usr/bin/python3"), QStringList()
                                                        << QLatin1String("-c")
                                                        << QLatin1String("import pandas, sys, time\n"
                                                                         "start = time.perf_counter()\n"
                                                                         "pandas.read_csv(sys.argv[1], engine='c')\n"
                                                                         "print(1e3 * (time.perf_counter() - start))")
                                                        << file);
    python.waitForFinished(-1);
    return python.exitCode() == 0 ? python.readAllStandardOutput().trimmed().toDouble() : 0;
}

} // namespace

bool measureTable(Host& host, const QString& folder, long rows)
{
    const QString file = folder + QLatin1String("/table.csv");
    const std::string of = "table of " + std::to_string(rows) + " rows";
    writeTable(file, rows);
    const double pandas = millisecondsOfPandas(file);
    double time = 0;
    double longest = 0;
    {
        const Turns turns;
        time = millisecondsOf([&] {
            if (!VelUtilDataLoad(file.toUtf8().constData()))
                qFatal("%s", VelUtilLastErrorMessage());
        });
        longest = turns.longestMilliseconds();
    }
    host.open(file);
    bool kept = report({of + ", read: the longest time without a turn of the application", longest, "ms", 10.0});
    if (pandas > 0)
        kept = report({of + ", read / by pandas", time / pandas, "×", 1.0,
                       rounded(time, "ms") + " / " + rounded(pandas, "ms")}) &&
               kept;
    else
        report({of + ", read", time, "ms"});
    return kept;
}

} // namespace velmora::benchmark
