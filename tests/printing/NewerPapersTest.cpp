// Papers that only the newer toolkit knows by name.

#include "integration/printing/PrintingUtil.h"
#include "tests/printing/PrintingTest.h"

#include <QPageSize>
#include <QSize>
#include <gmock/gmock.h>

using namespace velmora::test;
using ::testing::Contains;
using ::testing::Not;
using velmora::sdk::integration::UpdateKernelFromPrinter;

namespace {

using NewerPapers = PrintingTest;

} // namespace

TEST_F(NewerPapers, APaperWithoutARowIsWhatItMeasuresAndThePropertyIsNotAsked)
{
    const QPageSize::PageSizeId papers[] = {QPageSize::Postcard, QPageSize::JisB5, QPageSize::A4Small};
    for (const QPageSize::PageSizeId id : papers) {
        const QPageSize paper(id);
        m_printer.setPageSize(paper);
        m_printer.printEngine()->setProperty(static_cast<QPrintEngine::PrintEnginePropertyKey>(11), QSize(500, 600));
        ASSERT_NE(PaperName::Custom, paperName(m_printer));
        EXPECT_THAT(logOf(UpdateKernelFromPrinter, m_printer), Not(Contains("property 11")));
        const QSize size = paper.size(QPageSize::Millimeter).toSize();
        const std::string expected = id == QPageSize::A4Small ? "A4" : "Custom2";
        EXPECT_EQ(expected == "A4" ? 2 : 5, kernelPaper()) << id;
        EXPECT_NEAR(size.width() / 25.4, kernelLength(expected, "Width"), 0.05) << id;
        EXPECT_NEAR(size.height() / 25.4, kernelLength(expected, "Height"), 0.05) << id;
    }
}
