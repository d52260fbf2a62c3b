#include "GLDrawArea.h"

#include <QPainter>

namespace velmora::sdk::integration {

// The focus policy and the tracking are the area's, so that Designer shows them as its defaults.
GLDrawArea::GLDrawArea(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(this, SIGNAL(objectNameChanged(QString)), this, SLOT(update()));
}

void GLDrawArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::gray);
    painter.setPen(Qt::black);
    const QString name = objectName().isEmpty() ? QString::fromLatin1("GLDrawArea") : objectName();
    painter.drawText(rect(), Qt::AlignCenter, name);
}

} // namespace velmora::sdk::integration
