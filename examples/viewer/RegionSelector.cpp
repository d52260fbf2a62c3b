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

void selectIn(const QRect& rect, bool add)
{
    double left = 0.0, right = 0.0, bottom = 0.0, top = 0.0;
    VelUtilPickPositionToPaper(rect.left(), rect.bottom(), &left, &bottom);
    VelUtilPickPositionToPaper(rect.right(), rect.top(), &right, &top);
    VelEngSelectRegion(left, bottom, right, top, add ? 1 : 0);
}

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
RegionSelector::RegionSelector(GLDrawArea& area)
    : m_area(area), m_sheet(new QWidget(&area, Qt::ToolTip)),  // the area's child
      m_band(new QRubberBand(QRubberBand::Rectangle, m_sheet)) // the sheet's
{
    m_sheet->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_sheet->setAttribute(Qt::WA_TranslucentBackground);
    m_sheet->setAttribute(Qt::WA_ShowWithoutActivating);
    m_band->setStyle(&m_style);
    m_band->show(); // together with the sheet
}

QRect RegionSelector::rectTo(const QPoint& position) const
{
    return QRect(m_corner, position).normalized();
}

void RegionSelector::begin(const QPoint& position)
{
    m_corner = position;
    m_sheet->setGeometry(QRect(m_area.mapToGlobal(QPoint()), m_area.size()));
    placeBand(position);
    m_sheet->show();
}

void RegionSelector::extend(const QPoint& position)
{
    placeBand(position);
}

// The toolkit places the band in its own pixels.
void RegionSelector::placeBand(const QPoint& position)
{
    const double scale = screenPixelsPerPixel(m_area);
    m_band->setGeometry(QRect(m_corner / scale, position / scale).normalized() & m_area.rect());
    m_sheet->setMask(m_band->mask().translated(m_band->pos()));
}

void RegionSelector::finish(const QPoint& position, bool add)
{
    m_sheet->hide();
    QRect rect = rectTo(position);
    const int reach = qRound(ReachOfClick * screenPixelsPerPixel(m_area));
    if (rect.width() < reach && rect.height() < reach)
        rect.adjust(-reach, -reach, reach, reach);
    selectIn(rect, add);
}

void RegionSelector::zoom(const QPoint& position)
{
    m_sheet->hide();
    const QRect rect = rectTo(position);
    const double reach = ReachOfClick * screenPixelsPerPixel(m_area);
    if (rect.width() > reach && rect.height() > reach)
        VelUtilViewZoomTo(rect.left(), rect.top(), rect.right(), rect.bottom());
}

void RegionSelector::cancel()
{
    m_sheet->hide();
}

} // namespace viewer
