#pragma once

#include <QPoint>
#include <QProxyStyle>
#include <QRect>
#include <QRubberBand>

namespace velmora {
namespace sdk {
namespace integration {
class GLDrawArea;
} // namespace integration
} // namespace sdk
} // namespace velmora

namespace viewer {

/// Leaves of a rubber band only its frame: a window is not transparent without help of the desktop.
class HollowBandStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
};

/// Selects what lies in a rectangle of the area, in pixels of the screen; with `add` what was selected before stays so.
void selectIn(const QRect& rect, bool add);

/// Selects what a rubber band encloses, or what is at the place of a mere click; or zooms to what it encloses.
class RegionSelector {
public:
    explicit RegionSelector(velmora::sdk::integration::GLDrawArea& area);

    // Positions in the area, in pixels of the screen, as the mouse events have them.
    void begin(const QPoint& position);
    void extend(const QPoint& position);
    /// Selects; with `add` what was selected before stays so.
    void finish(const QPoint& position, bool add);
    /// Zooms; a mere click does nothing.
    void zoom(const QPoint& position);
    void cancel();
    bool isActive() const { return m_sheet->isVisible(); }

private:
    QRect rectTo(const QPoint& position) const;
    void placeBand(const QPoint& position);

    velmora::sdk::integration::GLDrawArea& m_area;
    HollowBandStyle m_style;
    QWidget* const m_sheet; ///< lies over the area, and has but the band on it: a Wayland client cannot move a window
    QRubberBand* const m_band;
    QPoint m_corner;
};

} // namespace viewer
