#include "integration/services/CursorShapeService.h"

#include "integration/glarea/GLDrawArea.h"
#include "interfaces/PageInterface.h"

#include <QApplication>
#include <QCursor>
#include <QPixmap>
#include <array>

namespace velmora::sdk::integration::services {

namespace {

// One cursor: an image with its hot spot (-1, -1 means the centre), or a shape of the toolkit.
struct CursorRow {
    Qt::CursorShape shape;
    const char* image;
    int hotX;
    int hotY;
};

constexpr CursorRow shaped(Qt::CursorShape shape)
{
    return {shape, nullptr, 0, 0};
}

constexpr CursorRow drawn(const char* image, int hotX, int hotY)
{
    return {Qt::BitmapCursor, image, hotX, hotY};
}

// By CursorStyle_e. Opposite brackets share the cursor of the direction they are dragged in, and
// Undefined and Waiting are the plain arrow: to wait is activateWaitCursor's business.
const std::array<CursorRow, 21> BaseCursors = {
    shaped(Qt::ArrowCursor),                    // Undefined
    shaped(Qt::ArrowCursor),                    // StandardArrow
    drawn(":/cursors/adjustor.png", 1, 1),      // Adjustor
    drawn(":/cursors/translate.png", 10, 10),   // Translate
    drawn(":/cursors/rotate.png", 10, 10),      // Rotate
    drawn(":/cursors/zoom-in.png", 7, 7),       // Zoom
    drawn(":/cursors/cross.png", -1, -1),       // Cross
    shaped(Qt::SizeFDiagCursor),                // UpperLeftBracket
    shaped(Qt::SizeBDiagCursor),                // UpperRightBracket
    shaped(Qt::SizeHorCursor),                  // LeftBracket
    shaped(Qt::SizeBDiagCursor),                // LowerLeftBracket
    shaped(Qt::SizeFDiagCursor),                // LowerRightBracket
    shaped(Qt::SizeHorCursor),                  // RightBracket
    shaped(Qt::SizeVerCursor),                  // BottomBracket
    shaped(Qt::SizeVerCursor),                  // TopBracket
    shaped(Qt::SizeVerCursor),                  // UpDown
    shaped(Qt::SizeHorCursor),                  // LeftRight
    shaped(Qt::ArrowCursor),                    // Waiting
    drawn(":/cursors/lightsource.png", -1, -1), // LightSource
    shaped(Qt::OpenHandCursor),                 // OpenHand
    shaped(Qt::ClosedHandCursor)                // ClosedHand
};
static_assert(CursorStyle_ClosedHand + 1 == static_cast<int>(BaseCursors.size()),
              "The table of cursors has one row for each CursorStyle_e value.");

QCursor baseCursor(CursorStyle_e style)
{
    // As unsigned, so that a negative value counts as one beyond the table.
    const unsigned index = static_cast<unsigned>(style);
    if (index >= BaseCursors.size())
        return QCursor();
    const CursorRow& row = BaseCursors[index];
    if (!row.image)
        return QCursor(row.shape);
    const QPixmap image(QString::fromLatin1(row.image));
    // Without the image it is the arrow: what the toolkit makes of it too, but not without a warning.
    return image.isNull() ? QCursor() : QCursor(image, row.hotX, row.hotY);
}

} // namespace

CursorShapeService::CursorShapeService() = default;
CursorShapeService::~CursorShapeService() = default;

void CursorShapeService::activateWaitCursor(bool on)
{
    if (on)
        QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    else
        QApplication::restoreOverrideCursor();
}

void CursorShapeService::setBaseCursorStyle(PageInterface* page, CursorStyle_e style)
{
    GLDrawArea* const area = dynamic_cast<GLDrawArea*>(page->getDrawArea());
    if (area)
        area->setCursor(baseCursor(style));
}

} // namespace velmora::sdk::integration::services
