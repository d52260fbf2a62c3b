#pragma once

#include "engine/VelUtil.h"

#include <QDialog>

class QComboBox;
class QFormLayout;
class QLabel;
class QSpinBox;

namespace viewer {

/// Asks how large an exported image shall be and how it shall be drawn.
class ExportDialog : public QDialog {
    Q_OBJECT

public:
    /// Offers a size in pixels.
    ExportDialog(const QSize& offered, QWidget* parent);

    VelExportImageOptions options() const;

private Q_SLOTS:
    void showPreview();

private:
    QSpinBox* addNumber(QFormLayout& form, const char* name, const QString& label, int least, int most, int value);

    QSpinBox* m_width;
    QSpinBox* m_height;
    QSpinBox* m_resolution;
    QSpinBox* m_supersample;
    QComboBox* m_strategy;
    QLabel* m_preview;
};

} // namespace viewer
