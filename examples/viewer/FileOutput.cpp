#include "FileOutput.h"

#include "EndSignals.h"
#include "Options.h"
#include "PagePrinter.h"
#include "engine/VelUtil.h"
#include "integration/printing/PrintingUtil.h"
#include "interfaces/EngineEnumerations.h"

#include <QPrinter>
#include <cstdio>

namespace viewer {

using namespace velmora::sdk::integration;

int fail(const char* message)
{
    std::fprintf(stderr, "viewer: %s\n", message);
    return 1;
}

int failWithLastMessage()
{
    const char* const message = VelUtilLastErrorMessage();
    const bool stopped = VelUtilWasInterrupted() || !*message;
    return fail(stopped ? "Stopped before the picture was complete; nothing was written." : message);
}

QByteArray couldNotBeWritten(const QString& fileName)
{
    return fileName.toUtf8() + " could not be written; check that its folder exists, is writable and has room for it.";
}

bool loadFirst(const Options& options)
{
    if (!VelUtilDataLoad(options.files.first().toUtf8().constData()) || endWasAsked())
        return false;
    const QList<QByteArray> notes = QByteArray(VelUtilDataNotes()).split('\n');
    for (const QByteArray& note : notes)
        if (!note.isEmpty())
            std::fprintf(stderr, "viewer: %s\n", note.constData());
    return true;
}

int exportFile(const Options& options)
{
    if (!loadFirst(options))
        return failWithLastMessage();
    VelExportImageOptions image = VelExportImageOptions();
    image.width = options.pictureSize().width();
    image.height = options.pictureSize().height();
    image.supersample = options.supersample;
    image.dotsPerInch = options.dotsPerInch;
    image.region = ExportRegion_CurrentFrame;
    image.strategy = options.software ? ImageRenderingStrategy_Software : ImageRenderingStrategy_Hardware;
    image.transparent = options.transparent ? 1 : 0;
    return VelUtilExportImage(options.output.toUtf8().constData(), &image) ? 0 : failWithLastMessage();
}

int printFile(const Options& options)
{
    constexpr int DotsPerInch = 300;
    if (!loadFirst(options))
        return failWithLastMessage();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(options.output);
    printer.setResolution(DotsPerInch);
    nameDocument(printer, options.files.first());
    UpdatePrinterFromKernel(printer);
    if (printPage(printer))
        return 0;
    if (*VelUtilLastErrorMessage() || endWasAsked())
        return failWithLastMessage();
    return fail(couldNotBeWritten(options.output).constData());
}

} // namespace viewer
