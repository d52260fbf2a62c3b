#include "ExportDialog.h"

#include "Options.h"
#include "interfaces/EngineEnumerations.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr double MillimetersPerInch = 25.4;

} // namespace

ExportDialog::ExportDialog(const QSize& offered, QWidget* parent)
    : QDialog(parent), m_transparent(new QCheckBox(tr("&Transparent ground"))), m_preview(new QLabel)
{
    setWindowTitle(tr("Export Image"));
    QFormLayout* const form = new QFormLayout(this);
    addRegions(*form);
    m_width = addNumber(*form, "width", tr("&Width in pixels"), 1, Options::LargestSide, offered.width());
    m_height = addNumber(*form, "height", tr("&Height in pixels"), 1, Options::LargestSide, offered.height());
    m_resolution = addNumber(*form, "resolution", tr("&Dots per inch"), 0, Options::MostDotsPerInch, 0);
    m_resolution->setSpecialValueText(tr("as on the screen"));
    m_supersample = addNumber(*form, "supersample", tr("S&moothing"), 1, Options::MostSupersampling, 2);
    m_supersample->setToolTip(tr("Drawn that many times larger in each direction, and averaged"));
    addStrategies(*form);
    m_transparent->setObjectName(QLatin1String("transparent"));
    m_transparent->setToolTip(tr("Leaves the white ground out, for a picture that is put upon something else"));
    form->addRow(m_transparent);
    m_preview->setObjectName(QLatin1String("preview"));
    form->addRow(m_preview);
    QDialogButtonBox* const buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    connect(buttons, SIGNAL(accepted()), this, SLOT(accept()));
    connect(buttons, SIGNAL(rejected()), this, SLOT(reject()));
    form->addRow(buttons);
    showPreview();
}

void ExportDialog::addRegions(QFormLayout& form)
{
    m_region = addChoice(form, "region", tr("Sh&ow"));
    m_region->addItem(tr("The plot"), ExportRegion_CurrentFrame);
    m_region->addItem(tr("The whole page"), ExportRegion_Page);
    m_region->addItem(tr("What the window shows"), ExportRegion_WorkArea);
}

void ExportDialog::addStrategies(QFormLayout& form)
{
    m_strategy = addChoice(form, "strategy", tr("Draw w&ith"));
    m_strategy->addItem(tr("Graphics hardware"), ImageRenderingStrategy_Hardware);
    m_strategy->addItem(tr("Software"), ImageRenderingStrategy_Software);
}

QSpinBox* ExportDialog::addNumber(QFormLayout& form, const char* name, const QString& label, int least, int most,
                                  int value)
{
    QSpinBox* const box = new QSpinBox;
    box->setObjectName(QLatin1String(name));
    box->setRange(least, most);
    box->setValue(value);
    form.addRow(label, box);
    connect(box, SIGNAL(valueChanged(int)), this, SLOT(showPreview()));
    return box;
}

QComboBox* ExportDialog::addChoice(QFormLayout& form, const char* name, const QString& label)
{
    QComboBox* const box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    form.addRow(label, box);
    return box;
}

VelExportImageOptions ExportDialog::options() const
{
    VelExportImageOptions options = VelExportImageOptions();
    options.width = m_width->value();
    options.height = m_height->value();
    options.supersample = m_supersample->value();
    options.region = m_region->itemData(m_region->currentIndex()).toInt();
    options.strategy = m_strategy->itemData(m_strategy->currentIndex()).toInt();
    options.dotsPerInch = m_resolution->value();
    options.transparent = m_transparent->isChecked() ? 1 : 0;
    return options;
}

void ExportDialog::showPreview()
{
    const VelExportImageOptions chosen = options();
    const double dotsPerInch = chosen.dotsPerInch > 0 ? chosen.dotsPerInch : logicalDpiX();
    const double width = chosen.width / dotsPerInch;
    const double height = chosen.height / dotsPerInch;
    m_preview->setText(tr("%1 x %2 pixels: %3 x %4 in (%5 x %6 mm) at %7 dots per inch")
                           .arg(chosen.width)
                           .arg(chosen.height)
                           .arg(width, 0, 'f', 2)
                           .arg(height, 0, 'f', 2)
                           .arg(width * MillimetersPerInch, 0, 'f', 0)
                           .arg(height * MillimetersPerInch, 0, 'f', 0)
                           .arg(dotsPerInch, 0, 'f', 0));
}

} // namespace viewer
