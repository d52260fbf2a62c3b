#include "RegionSelector.h"

#include "ScreenPixels.h"
#include "engine/VelEng.h"
#include "engine/VelUtil.h"

#include <QStyleOption>
#include <QtGlobal>

namespace viewer {

using velmora::sdk::integration::GLDrawArea;

namespace {

constexpr int ReachOfClick = 4; // pixels of the area: nobody hits a thin line exactly

} // namespace

int HollowBandStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* result) const
{
    constexpr int FrameWidth = 2;
    QStyleHintReturnMask* const mask = qstyleoption_cast<QStyleHintReturnMask*>(result);
    if (hint != SH_RubberBand_Mask || !mask)
        return QProxyStyle::styleHint(hint, option, widget, result);
    const QRect inside = widget->rect().adjusted(FrameWidth, FrameWidth, -FrameWidth, -FrameWidth);
    mask->region = QRegion(widget->rect()) - QRegion(inside);
    return 1;
}

// A window of its own: nothing but OpenGL can paint in the area.
RegionSelector::RegionSelector(GLDrawArea& area) : m_area(area), m_band(QRubberBand::Rectangle)
{
    m_band.setStyle(&m_style);
}

QRect RegionSelector::rectTo(const QPoint& position) const
{
    return QRect(m_corner, position).normalized();
}

void RegionSelector::begin(const QPoint& position)
{
    m_corner = position;
    placeBand(position);
    m_band.show();
}

void RegionSelector::extend(const QPoint& position)
{
    placeBand(position);
}

// The band is a window: the toolkit places it in its own pixels.
void RegionSelector::placeBand(const QPoint& position)
{
    const double scale = screenPixelsPerPixel(m_area);
    const QRect rect = QRect(m_corner / scale, position / scale).normalized() & m_area.rect();
    m_band.setGeometry(QRect(m_area.mapToGlobal(rect.topLeft()), rect.size()));
}

void RegionSelector::finish(const QPoint& position, bool add)
{
    m_band.hide();
    QRect rect = rectTo(position);
    const int reach = qRound(ReachOfClick * screenPixelsPerPixel(m_area));
    if (rect.width() < reach && rect.height() < reach)
        rect.adjust(-reach, -reach, reach, reach);
    double left = 0.0, right = 0.0, bottom = 0.0, top = 0.0;
    VelUtilPickPositionToPaper(rect.left(), rect.bottom(), &left, &bottom);
    VelUtilPickPositionToPaper(rect.right(), rect.top(), &right, &top);
    VelEngSelectRegion(left, bottom, right, top, add ? 1 : 0);
}

void RegionSelector::cancel()
{
    m_band.hide();
}

} // namespace viewer
