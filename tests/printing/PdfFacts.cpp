#include "tests/printing/PdfFacts.h"

#include <QProcess>
#include <QStringList>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>

namespace velmora::test {

QSizeF pageSizeOfPdf(const QString& fileName)
{
    QProcess process;
    process.start("pdfinfo", QStringList() << fileName);
    EXPECT_TRUE(process.waitForFinished(30000)) << "Is pdfinfo (poppler-utils) installed?";
    const std::string facts = process.readAllStandardOutput().constData();
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
