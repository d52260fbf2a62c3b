#include "tests/printing/RecordingPrinter.h"

#include "testing/EngineProbe.h"

#include <QSize>

namespace velmora::test {
namespace {

constexpr int PaperProperty = 11;

std::string describe(int key, const QVariant& value)
{
    switch (key) {
    case QPrintEngine::PPK_Orientation:
        return "setOrientation " + std::to_string(value.toInt());
    case QPrintEngine::PPK_FullPage:
        return "setFullPage " + std::to_string(value.toInt());
    default:
        break;
    }
    const QSize size = value.toSize();
    return "setProperty " + std::to_string(key) + " " + std::to_string(size.width()) + "x" +
           std::to_string(size.height());
}

} // namespace

void RecordingPrintEngine::setProperty(PrintEnginePropertyKey key, const QVariant& value)
{
    if (setPageSizeProperty(key, value))
        return;
    velmora::testing::EngineProbe::note(describe(key, value));
    m_properties[key] = value;
}

QVariant RecordingPrintEngine::property(PrintEnginePropertyKey key) const
{
    if (key == PaperProperty) {
        velmora::testing::EngineProbe::note("property 11");
        if (!keepsPaperProperty)
            return QVariant();
    }
    const QVariant pageSize = pageSizeProperty(key);
    return pageSize.isValid() ? pageSize : m_properties.value(key);
}

RecordingPrinter::RecordingPrinter()
{
    setEngines(&m_engine, &m_engine);
}

} // namespace velmora::test
