#pragma once

#include "ThreedMouseSettings.h"

#include <QDialog>

class QCheckBox;
class QGridLayout;
class QLabel;
class QSlider;

namespace viewer {

/// Chooses how the 3D mouse moves the view. What is chosen holds at once and is kept, so that a person can try it with
/// the dialog open.
class ThreedMouseDialog : public QDialog {
    Q_OBJECT

public:
    explicit ThreedMouseDialog(QWidget* parent);

    ThreedMouseSettings settings() const { return m_settings; }

Q_SIGNALS:
    /// A person wants the device to be looked for.
    void lookedFor();

public Q_SLOTS:
    /// Tells whether there is a 3D mouse.
    void showState();

protected:
    bool event(QEvent* event) override;

private Q_SLOTS:
    void takeOver();

private:
    struct Choice {
        QCheckBox* used;
        QCheckBox* reversed;
    };

    Choice addMotion(QGridLayout& grid, const char* name, const QString& text, const QString& reversed,
                     const ThreedMouseSettings::Motion& motion);
    QCheckBox* addBox(const QString& name, const QString& text, bool checked);
    static ThreedMouseSettings::Motion chosen(const Choice& choice);

    ThreedMouseSettings m_settings;
    QSlider* m_speed;
    Choice m_turn;
    Choice m_move;
    Choice m_zoom;
    QCheckBox* m_swap;
    QLabel* m_state;
};

} // namespace viewer
