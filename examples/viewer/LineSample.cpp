#include "LineSample.h"

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QStringList>
#include <QVector>

namespace viewer {

namespace {

constexpr int Fineness = 2; ///< for screens whose pixels are small
constexpr double LineWidth = 1.6;
constexpr double PointRadius = 3;

QVector<qreal> numbersIn(const QString& text)
{
    QVector<qreal> numbers;
    const QStringList words = text.split(QLatin1Char(' '));
    for (const QString& word : words)
        if (!word.isEmpty())
            numbers.append(word.toDouble());
    return numbers;
}

} // namespace

QIcon lineSample(const QString& color, const QString& dashes)
{
    const QSize size = lineSampleSize();
    QPixmap pixmap(size * Fineness);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.scale(Fineness, Fineness);
    painter.setRenderHint(QPainter::Antialiasing);
    const double middle = size.height() / 2.0;
    if (dashes == QLatin1String("points")) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(color));
        painter.drawEllipse(QPointF(size.width() / 2.0, middle), PointRadius, PointRadius);
    } else {
        QPen pen(QColor(color), LineWidth, Qt::SolidLine, Qt::FlatCap);
        const QVector<qreal> pattern = numbersIn(dashes);
        if (!pattern.isEmpty())
            pen.setDashPattern(pattern);
        painter.setPen(pen);
        painter.drawLine(QPointF(0, middle), QPointF(size.width(), middle));
    }
    return QIcon(pixmap);
}

} // namespace viewer
