#pragma once

#include <QPageSize>
#include <QSizeF>

namespace velmora::sdk::integration::toolkit {

/// Enough to change the size in points by one, and too little to change it in millimetres.
constexpr qreal OnePointInMillimeters = 0.36;

/// The toolkit tells papers apart by their size in whole points and gives one that it knows its name. The
/// names do not stand for the same sizes everywhere (its B sizes are ISO's), so a paper that was
/// asked for by size must stay a size and not come back as a name.
inline QPageSize customPage(const QSizeF& millimeters)
{
    const QPageSize page(millimeters, QPageSize::Millimeter, QString(), QPageSize::ExactMatch);
    if (page.id() == QPageSize::Custom)
        return page;
    return QPageSize(millimeters + QSizeF(OnePointInMillimeters, 0), QPageSize::Millimeter, QString(),
                     QPageSize::ExactMatch);
}

} // namespace velmora::sdk::integration::toolkit
