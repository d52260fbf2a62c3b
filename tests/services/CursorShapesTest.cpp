// Which cursor is shown for what the engine asks for.
#include "integration/glarea/GLDrawArea.h"
#include "integration/services/CursorShapeService.h"
#include "interfaces/PageInterface.h"
#include "tests/support/SilentArea.h"

#include <QApplication>
#include <QCursor>
#include <QPixmap>
#include <climits>
#include <gmock/gmock.h>

// What the resource compiler generates for the bundle; the library exports it.
int qInitResources_sdk_cursors();
int qCleanupResources_sdk_cursors();

namespace velmora::test {

namespace {

using sdk::integration::CursorStyle_e;
using sdk::integration::GLDrawArea;
using sdk::integration::GLDrawAreaInterface;
using sdk::integration::services::CursorShapeService;

class Page : public sdk::integration::PageInterface {
public:
    explicit Page(GLDrawAreaInterface* area) : m_area(area) {}
    GLDrawAreaInterface* getDrawArea() const override { return m_area; }
    int pageNumber() const override { return 1; }

private:
    GLDrawAreaInterface* m_area;
};

// A drawing area of another kind: a widget too, but not a GLDrawArea.
class OtherArea : public QWidget, public velmora::test::SilentArea {
public:
    bool isVisible() const override { return false; }
    void getSize(int* width, int* height) const override { *width = *height = 0; }
    sdk::integration::GLContextInterface& getGLContext() override { std::abort(); }
    bool isValidWidget() const override { return true; }
};

struct ShapeRow {
    int style;
    Qt::CursorShape shape;
};
const ShapeRow Shapes[] = {
    {0, Qt::ArrowCursor},       {1, Qt::ArrowCursor},      {7, Qt::SizeFDiagCursor},   {8, Qt::SizeBDiagCursor},
    {9, Qt::SizeHorCursor},     {10, Qt::SizeBDiagCursor}, {11, Qt::SizeFDiagCursor},  {12, Qt::SizeHorCursor},
    {13, Qt::SizeVerCursor},    {14, Qt::SizeVerCursor},   {15, Qt::SizeVerCursor},    {16, Qt::SizeHorCursor},
    {17, Qt::ArrowCursor},      {19, Qt::OpenHandCursor},  {20, Qt::ClosedHandCursor}, {21, Qt::ArrowCursor},
    {22, Qt::ArrowCursor},      {31, Qt::ArrowCursor},     {1000, Qt::ArrowCursor},    {INT_MAX, Qt::ArrowCursor},
    {INT_MIN, Qt::ArrowCursor}, {-1, Qt::ArrowCursor}};

struct ImageRow {
    int style;
    const char* image;
    int hotX, hotY; // -1: the centre
};
const ImageRow Images[] = {{2, "adjustor", 1, 1}, {3, "translate", 10, 10}, {4, "rotate", 10, 10},
                           {5, "zoom-in", 7, 7},  {6, "cross", -1, -1},     {18, "lightsource", -1, -1}};

class CursorShapes : public testing::Test {
protected:
    QCursor cursorFor(int style)
    {
        // Something that no style comes to, so that a cursor that is not set shows.
        m_area.setCursor(QCursor(Qt::ForbiddenCursor));
        Page page(&m_area);
        m_service.setBaseCursorStyle(&page, static_cast<CursorStyle_e>(style));
        return m_area.cursor();
    }

    GLDrawArea m_area;
    CursorShapeService m_service;
};

} // namespace

TEST_F(CursorShapes, AStyleOfAShapeSetsTheShape)
{
    for (const ShapeRow& row : Shapes)
        EXPECT_EQ(row.shape, cursorFor(row.style).shape()) << "style " << row.style;
}

TEST_F(CursorShapes, AStyleOfAnImageSetsTheImageAndItsHotSpot)
{
    for (const ImageRow& row : Images) {
        SCOPED_TRACE(row.image);
        const QPixmap image(QString::fromLatin1(":/cursors/") + QString::fromLatin1(row.image) +
                            QString::fromLatin1(".png"));
        ASSERT_FALSE(image.isNull());
        const QCursor cursor = cursorFor(row.style);
        EXPECT_EQ(Qt::BitmapCursor, cursor.shape());
        EXPECT_EQ(image.toImage(), cursor.pixmap().toImage());
        const QPoint centre(image.width() / 2, image.height() / 2);
        EXPECT_EQ(row.hotX < 0 ? centre : QPoint(row.hotX, row.hotY), cursor.hotSpot());
    }
}

TEST_F(CursorShapes, WithoutTheImagesTheArrowIsSetAndNothingIsReported)
{
    ASSERT_EQ(1, qCleanupResources_sdk_cursors());
    ASSERT_TRUE(QPixmap(QString::fromLatin1(":/cursors/cross.png")).isNull());
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    for (const ImageRow& row : Images)
        EXPECT_EQ(Qt::ArrowCursor, cursorFor(row.style).shape()) << row.image;
    EXPECT_EQ("", ::testing::internal::GetCapturedStderr());
    EXPECT_EQ("", ::testing::internal::GetCapturedStdout());
    ASSERT_EQ(1, qInitResources_sdk_cursors());
}

TEST_F(CursorShapes, TheTablesHoldEveryStyle)
{
    QList<int> styles;
    for (const ShapeRow& row : Shapes)
        styles.append(row.style);
    for (const ImageRow& row : Images)
        styles.append(row.style);
    for (int style = 0; style <= 21; ++style)
        EXPECT_EQ(1, styles.count(style)) << style;
}

TEST_F(CursorShapes, APageWithoutADrawingAreaLeavesEveryCursor)
{
    m_area.setCursor(QCursor(Qt::ForbiddenCursor));
    Page page(nullptr);
    m_service.setBaseCursorStyle(&page, sdk::integration::CursorStyle_Cross);
    EXPECT_EQ(Qt::ForbiddenCursor, m_area.cursor().shape());
}

TEST_F(CursorShapes, ADrawingAreaOfAnotherKindKeepsItsCursor)
{
    OtherArea other;
    other.setCursor(QCursor(Qt::ForbiddenCursor));
    Page page(&other);
    m_service.setBaseCursorStyle(&page, sdk::integration::CursorStyle_Cross);
    EXPECT_EQ(Qt::ForbiddenCursor, other.cursor().shape());
}

TEST_F(CursorShapes, WaitCursorsPileUp)
{
    ASSERT_EQ(nullptr, QApplication::overrideCursor());
    m_service.activateWaitCursor(true);
    m_service.activateWaitCursor(true);
    ASSERT_NE(nullptr, QApplication::overrideCursor());
    EXPECT_EQ(Qt::WaitCursor, QApplication::overrideCursor()->shape());
    m_service.activateWaitCursor(false);
    ASSERT_NE(nullptr, QApplication::overrideCursor());
    EXPECT_EQ(Qt::WaitCursor, QApplication::overrideCursor()->shape());
    m_service.activateWaitCursor(false);
    EXPECT_EQ(nullptr, QApplication::overrideCursor());
}

TEST_F(CursorShapes, AWaitCursorUncoversWhatWasThereBefore)
{
    QApplication::setOverrideCursor(QCursor(Qt::CrossCursor));
    m_service.activateWaitCursor(true);
    EXPECT_EQ(Qt::WaitCursor, QApplication::overrideCursor()->shape());
    m_service.activateWaitCursor(false);
    EXPECT_EQ(Qt::CrossCursor, QApplication::overrideCursor()->shape());
    QApplication::restoreOverrideCursor();
}

TEST_F(CursorShapes, OnePopTooManyIsHarmless)
{
    m_service.activateWaitCursor(false);
    EXPECT_EQ(nullptr, QApplication::overrideCursor());
}

} // namespace velmora::test
