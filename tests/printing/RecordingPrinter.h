#pragma once

#include "integration/toolkit/Paper.h"

#include <QMap>
#include <QPaintEngine>
#include <QPrintEngine>
#include <QPrinter>
#include <QVariant>
#include <string>
#include <vector>

namespace velmora::test {

using sdk::integration::toolkit::isPortrait;
using sdk::integration::toolkit::paperName;
using sdk::integration::toolkit::PaperName;
using sdk::integration::toolkit::setPaperName;
using sdk::integration::toolkit::setPortrait;

/// A print engine that prints nothing. What a printer is told arrives in the log of the
/// EngineProbe, among the engine's own entries: "setOrientation 1", "setFullPage 1",
/// "setPageSize 8", "setProperty 11 100x150", "setCustomPaper 100x150" (millimetres),
/// "property 11".
class RecordingPrintEngine : public QPrintEngine, public QPaintEngine {
public:
    void setProperty(PrintEnginePropertyKey key, const QVariant& value) override;
    QVariant property(PrintEnginePropertyKey key) const override;
    bool newPage() override { return true; }
    bool abort() override { return true; }
    int metric(QPaintDevice::PaintDeviceMetric) const override { return 72; }
    QPrinter::PrinterState printerState() const override { return QPrinter::Idle; }

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    Type type() const override { return User; }

    /// Whether the property 11 is kept and answered, as the real print engines do not.
    bool keepsPaperProperty = true;

private:
    /// What differs from toolkit to toolkit: the keys of the page size. True when it was one.
    bool setPageSizeProperty(PrintEnginePropertyKey key, const QVariant& value);
    QVariant pageSizeProperty(PrintEnginePropertyKey key) const;

    QMap<int, QVariant> m_properties;
};

class RecordingPrinter : public QPrinter {
public:
    RecordingPrinter();

    RecordingPrintEngine& engine() { return m_engine; }

private:
    RecordingPrintEngine m_engine;
};

/// What the log shows of setPageSize(QPrinter::Custom): one toolkit does not pass it on.
std::vector<std::string> callsOfCustomPageSize();
/// Makes the printer's paper a custom one of this size, as a person does in a print dialog.
void setCustomPaper(QPrinter& printer, double width, double height);

} // namespace velmora::test
