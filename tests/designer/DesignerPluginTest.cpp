// The plugin as Designer loads and uses it.
#include "tests/support/Pixels.h"
#include "tests/support/Wait.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QFormBuilder>
#include <QPluginLoader>
#include <QProcess>
#include <QXmlStreamReader>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace velmora::test {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

const char* const ClassOfArea = "velmora::sdk::integration::GLDrawArea";
const char* const HeaderOfArea = "integration/glarea/GLDrawArea.h";

class DesignerPlugin : public ::testing::Test {
protected:
    void SetUp() override
    {
        area = qobject_cast<QDesignerCustomWidgetInterface*>(loader.instance());
        ASSERT_NE(area, nullptr) << qPrintable(loader.errorString());
    }

    QPluginLoader loader{QString::fromLatin1(DESIGNER_PLUGIN)};
    QDesignerCustomWidgetInterface* area = nullptr;
};

/// The attributes and texts that a description of a form has for the widget.
struct Described {
    QString elementClass;
    QString customClass;
    QString header;
    QString error;
};

Described readDescription(const QString& xml)
{
    Described result;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("widget"))
            result.elementClass = reader.attributes().value(QLatin1String("class")).toString();
        else if (reader.name() == QLatin1String("class"))
            result.customClass = reader.readElementText();
        else if (reader.name() == QLatin1String("header"))
            result.header = reader.readElementText();
    }
    result.error = reader.errorString();
    return result;
}

bool showsPlaceholder(const QWidget& widget)
{
    const QImage shot = grabFromScreen(widget);
    const QRgb ground = QColor(Qt::gray).rgb();
    const QSize middle(160, 40);
    const QRect place(QPoint(shot.width() - middle.width(), shot.height() - middle.height()) / 2, middle);
    const int grey = countColor(shot, ground);
    const int greyInTheMiddle = countColor(shot.copy(place), ground);
    const int all = shot.width() * shot.height();
    const int allInTheMiddle = middle.width() * middle.height();
    return greyInTheMiddle < allInTheMiddle - 100 && all - grey == allInTheMiddle - greyInTheMiddle;
}

TEST_F(DesignerPlugin, NamesTheClassAndItsHeader)
{
    EXPECT_EQ(area->name(), QLatin1String(ClassOfArea));
    EXPECT_EQ(area->includeFile(), QLatin1String(HeaderOfArea));
    EXPECT_FALSE(area->isContainer());
}

TEST_F(DesignerPlugin, DescribesTheAreaToAFormByTheSameClassAndHeader)
{
    const Described described = readDescription(area->domXml());
    EXPECT_EQ(described.error, QString());
    EXPECT_EQ(described.elementClass, QLatin1String(ClassOfArea));
    EXPECT_EQ(described.customClass, QLatin1String(ClassOfArea));
    EXPECT_EQ(described.header, QLatin1String(HeaderOfArea));
}

TEST_F(DesignerPlugin, ShowsItsNameInTheMiddleOfAGreyGround)
{
    const std::unique_ptr<QWidget> placeholder(area->createWidget(nullptr));
    placeholder->resize(400, 300);
    ASSERT_TRUE(showAndWait(*placeholder));
    EXPECT_TRUE(waitUntil([&] { return showsPlaceholder(*placeholder); }));
}

TEST_F(DesignerPlugin, ShowsTheNameThatTheFormGivesTheArea)
{
    const std::unique_ptr<QWidget> placeholder(area->createWidget(nullptr));
    placeholder->resize(400, 300);
    ASSERT_TRUE(showAndWait(*placeholder));
    ASSERT_TRUE(waitUntil([&] { return showsPlaceholder(*placeholder); }));
    const QImage before = grabFromScreen(*placeholder);
    placeholder->setObjectName(QLatin1String("leftArea"));
    EXPECT_TRUE(waitUntil([&] {
        return showsPlaceholder(*placeholder) && differingFraction(before, grabFromScreen(*placeholder), 0) > 0;
    }));
}

TEST_F(DesignerPlugin, NeedsNeitherTheLibraryNorAnEngineNorOpenGL)
{
    QProcess reader;
    reader.start(QLatin1String("readelf"), QStringList() << QLatin1String("-d") << loader.fileName());
    ASSERT_TRUE(reader.waitForFinished()) << qPrintable(reader.errorString());
    std::string needed;
    for (const QByteArray& line : reader.readAllStandardOutput().split('\n'))
        if (line.contains("(NEEDED)"))
            needed += line.mid(line.indexOf('[')).toStdString();
    EXPECT_THAT(needed, AllOf(HasSubstr("Widgets.so"), Not(HasSubstr("[libv")), Not(HasSubstr("GL"))));
}

TEST_F(DesignerPlugin, KeepsTheClassOfTheAreaWhenAFormIsReadAndSaved)
{
    QFormBuilder builder;
    builder.addPluginPath(QFileInfo(loader.fileName()).path());
    QFile form(QString::fromLatin1(FORM));
    ASSERT_TRUE(form.open(QIODevice::ReadOnly));
    const std::unique_ptr<QWidget> window(builder.load(&form));
    ASSERT_NE(window, nullptr) << qPrintable(builder.errorString());
    QWidget* const placeholder = window->findChild<QWidget*>(QLatin1String("drawArea"));
    ASSERT_NE(placeholder, nullptr);

    QBuffer saved;
    ASSERT_TRUE(saved.open(QIODevice::ReadWrite));
    builder.save(&saved, placeholder);
    EXPECT_THAT(saved.data().toStdString(), HasSubstr(std::string("<widget class=\"") + ClassOfArea + '"'));
}

} // namespace
} // namespace velmora::test
