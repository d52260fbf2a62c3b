#pragma once

#include <QIcon>
#include <QSize>

namespace viewer {

inline QSize lineSampleSize()
{
    return QSize(30, 12);
}

/// How a line looks, after what the engine tells of it: its colour, and the lengths of its dashes or "points".
QIcon lineSample(const QString& color, const QString& dashes);

} // namespace viewer
