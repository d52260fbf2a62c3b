#pragma once

#include "engine/VelUtil.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QSpinBox;

namespace viewer {

/// Asks what an exported image shall show, how large it shall be and how it shall be drawn.
class ExportDialog : public QDialog {
    Q_OBJECT

public:
    /// Offers a size in pixels.
    ExportDialog(const QSize& offered, QWidget* parent);

    VelExportImageOptions options() const;

private Q_SLOTS:
    void showPreview();

private:
    void addRegions(QFormLayout& form);
    void addStrategies(QFormLayout& form);
    QSpinBox* addNumber(QFormLayout& form, const char* name, const QString& label, int least, int most, int value);

    static QComboBox* addChoice(QFormLayout& form, const char* name, const QString& label);

    QSpinBox* m_width;
    QSpinBox* m_height;
    QSpinBox* m_resolution;
    QSpinBox* m_supersample;
    QComboBox* m_region;
    QComboBox* m_strategy;
    QCheckBox* m_transparent;
    QLabel* m_preview;
};

} // namespace viewer
