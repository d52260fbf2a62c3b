#pragma once

#include <QIcon>
#include <QString>

namespace viewer {

/// A picture of the library's resources, by its folder and name ("icons/left.png").
inline QIcon icon(const char* name)
{
    return QIcon(QString::fromLatin1(":/%1").arg(QLatin1String(name)));
}

} // namespace viewer
