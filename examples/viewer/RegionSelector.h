#pragma once

#include <QPoint>
#include <QProxyStyle>
#include <QRubberBand>

class QWidget;

namespace viewer {

/// Leaves of a rubber band only its frame: a window is not transparent without help of the desktop.
class HollowBandStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
};

/// Selects what a rubber band encloses, or what is at the place of a mere click.
class RegionSelector {
public:
    explicit RegionSelector(QWidget& area);

    // Positions in pixels of the area.
    void begin(const QPoint& position);
    void extend(const QPoint& position);
    /// Selects; with `add` what was selected before stays so.
    void finish(const QPoint& position, bool add);
    void cancel();
    bool isActive() const { return m_band.isVisible(); }

private:
    QRect rectTo(const QPoint& position) const;

    QWidget& m_area;
    HollowBandStyle m_style;
    QRubberBand m_band;
    QPoint m_corner;
};

} // namespace viewer
