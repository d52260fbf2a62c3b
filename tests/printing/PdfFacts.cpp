#include "tests/printing/PdfFacts.h"

#include <QProcess>
#include <QStringList>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>

namespace velmora::test {

namespace {

std::string factsOf(const QString& fileName)
{
    QProcess process;
    process.start("pdfinfo", QStringList() << fileName);
    EXPECT_TRUE(process.waitForFinished(30000)) << "Is pdfinfo (poppler-utils) installed?";
    return process.readAllStandardOutput().constData();
}

} // namespace

QString descriptionInPdf(const QString& fileName, const char* what)
{
    const QStringList lines = QString::fromUtf8(factsOf(fileName).c_str()).split('\n');
    for (const QString& line : lines)
        if (line.startsWith(QLatin1String(what) + QLatin1Char(':')))
            return line.section(':', 1).trimmed();
    return QString();
}

QSizeF pageSizeOfPdf(const QString& fileName)
{
    const std::string facts = factsOf(fileName);
    const std::size_t place = facts.find("Page size:");
    double width = 0;
    double height = 0;
    const bool found = place != std::string::npos &&
                       std::sscanf(facts.c_str() + place, "Page size: %lf x %lf pts", &width, &height) == 2;
    EXPECT_TRUE(found) << fileName.toUtf8().constData();
    constexpr double MillimetresPerPoint = 25.4 / 72;
    return QSizeF(width, height) * MillimetresPerPoint;
}

} // namespace velmora::test
