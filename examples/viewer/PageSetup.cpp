#include "PageSetup.h"

#include "Toolkit.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPageSetupDialog>
#include <QPrinter>

namespace viewer {

namespace {

constexpr int Millimeters = 0; // the first of the dialog's units

// The one that has no size of its own.
int customPaper(const QComboBox& papers)
{
    int index = papers.count() - 1;
    while (index >= 0 && papers.itemData(index).isValid())
        --index;
    return index;
}

// Some versions of the toolkit's dialog take a custom paper for A4, show it so and give the printer
// that. What they have for a person to choose a custom paper is chosen here beforehand; a dialog
// without these parts is another one and needs no help.
void showCustomPaper(QPageSetupDialog& dialog, const QPrinter& printer)
{
    QComboBox* const units = dialog.findChild<QComboBox*>(QLatin1String("unitCombo"));
    QComboBox* const papers = dialog.findChild<QComboBox*>(QLatin1String("pageSizeCombo"));
    QDoubleSpinBox* const width = dialog.findChild<QDoubleSpinBox*>(QLatin1String("pageWidth"));
    QDoubleSpinBox* const height = dialog.findChild<QDoubleSpinBox*>(QLatin1String("pageHeight"));
    if (!units || !papers || !width || !height || customPaper(*papers) < 0)
        return;
    const QSizeF size = printer.paperRect(QPrinter::Millimeter).size();
    units->setCurrentIndex(Millimeters);
    papers->setCurrentIndex(customPaper(*papers));
    width->setValue(size.width());
    height->setValue(size.height());
}

} // namespace

bool askForPage(QPrinter& printer, QWidget& parent)
{
    QPageSetupDialog dialog(&printer, &parent);
    if (hasCustomPaper(printer)) {
        showCustomPaper(dialog, printer);
        showAsItLies(dialog, printer);
    }
    return dialog.exec() == QDialog::Accepted;
}

} // namespace viewer
