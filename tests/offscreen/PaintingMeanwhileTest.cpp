// An application that paints with OpenGL of its own in the turns that it gets during an export.

#include "chosen_toolkit/GLWidget.h"
#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/offscreen/ImageSetting.h"
#include "tests/offscreen/TestPicture.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"
#include "tests/viewer/TempFolder.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using namespace sdk::integration;

constexpr int Side = 90;

/// Draws and shows another picture each time that a timer of its own tells.
class Painter : public toolkit::GLWidget {
public:
    int pictures() const { return m_pictures; }
    bool showsTheLast() const
    {
        return waitUntil(
            [this] { return differingFraction(grabFromScreen(*this), tiles(Side, Side, m_pictures), 0) == 0.0; });
    }

protected:
    void timerEvent(QTimerEvent*) override
    {
        makeCurrent();
        drawTiles(screenGL(), Side, Side, ++m_pictures);
        swapBuffers();
    }

private:
    int m_pictures = 0;
};

/// How the export is drawn: by strategy, with or without EGL first.
using Way = std::pair<ImageRenderingStrategy_e, int>;

class PaintingMeanwhile : public ::testing::TestWithParam<Way> {
protected:
    PaintingMeanwhile()
    {
        static char program[] = "painting";
        char* arguments[] = {program, nullptr};
        m_manager.init(1, arguments, std::string(), program);
        m_manager.start();
        m_painter.resize(Side, Side);
        EXPECT_TRUE(showAndWait(m_painter));
        EXPECT_TRUE(VelUtilDataLoad(m_folder.writeGrid(200).toUtf8().constData())) << VelUtilLastErrorMessage();
    }
    ~PaintingMeanwhile() override { m_manager.stop(); }

    QImage exported()
    {
        const QString file = m_folder.file("out.png");
        const VelExportImageOptions options = {900, 700, 1, ExportRegion_CurrentFrame, GetParam().first, 0};
        EXPECT_TRUE(VelUtilExportImage(file.toUtf8().constData(), &options)) << VelUtilLastErrorMessage();
        return QImage(file);
    }

    Manager& m_manager = Manager::getInstance();
    TempFolder m_folder;
    Painter m_painter;
};

INSTANTIATE_TEST_SUITE_P(While, PaintingMeanwhile,
                         ::testing::Values(Way(ImageRenderingStrategy_Hardware, 0),
                                           Way(ImageRenderingStrategy_Hardware, 1),
                                           Way(ImageRenderingStrategy_Software, 0),
                                           Way(ImageRenderingStrategy_Software, 1)));

TEST_P(PaintingMeanwhile, SpoilsNeitherTheExportNorWhatIsPainted)
{
    const ImageSetting preference("PreferEGL", GetParam().second);
    const QImage undisturbed = exported();
    const int timer = m_painter.startTimer(0);
    const QImage disturbed = exported();
    m_painter.killTimer(timer);
    EXPECT_GT(m_painter.pictures(), 0);
    EXPECT_TRUE(m_painter.showsTheLast());
    EXPECT_EQ(disturbed, undisturbed);
}

} // namespace
} // namespace velmora::test
