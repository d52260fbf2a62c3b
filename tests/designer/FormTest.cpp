// A form that names the area, made into code by uic. The generated header comes first: it includes the area's itself.
#include "ui_WindowWithArea.h"

#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"

#include <QSet>
#include <gtest/gtest.h>
#include <type_traits>

namespace velmora::test {
namespace {

using namespace velmora::sdk::integration;

int coloursOf(const QImage& image)
{
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
    return static_cast<int>(colours.size());
}

TEST(Form, MadeIntoCodeShowsThePageOfTheStartedEngine)
{
    static_assert(std::is_same_v<decltype(Ui::WindowWithArea::drawArea), GLDrawArea*>);
    char program[] = "form";
    char* arguments[] = {program, nullptr};
    Manager& manager = Manager::getInstance();
    ASSERT_EQ(manager.init(1, arguments, "", "form"), ManagerStartReturnCode_Ok);
    ASSERT_EQ(manager.start(), ManagerStartReturnCode_Ok);
    {
        QMainWindow window;
        Ui::WindowWithArea form;
        form.setupUi(&window);
        EXPECT_EQ(form.drawArea->objectName(), QLatin1String("drawArea"));
        form.drawArea->setPageManager(manager.getPageManager());
        ASSERT_TRUE(showAndWait(window));
        ASSERT_TRUE(VelUtilDataLoad(SAMPLE_DATA "/volcanic_island.asc")) << VelUtilLastErrorMessage();
        constexpr int ColoursOfASurface = 64; // a ground and a text have fewer
        EXPECT_TRUE(waitUntil([&] { return coloursOf(grabFromScreen(*form.drawArea)) >= ColoursOfASurface; }));
    } // drawing areas go before the engine stops
    manager.stop();
}

} // namespace
} // namespace velmora::test
