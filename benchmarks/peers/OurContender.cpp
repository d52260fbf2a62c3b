#include "benchmarks/peers/Contender.h"

#include "engine/VelUtil.h"
#include "integration/Manager.h"
#include "integration/StyleSettings.h"
#include "integration/glarea/GLDrawArea.h"
#include "interfaces/EngineEnumerations.h"
#include "interfaces/MouseEventListenerInterface.h"
#include "toolbox/StyleValue.h"

#include <QMainWindow>
#include <QTemporaryFile>
#include <QTextStream>

namespace velmora::benchmark {

namespace {

using namespace velmora::sdk::integration;

class MoveCounter : public MouseEventListenerInterface {
public:
    void mouseMoved(MouseEventInterface&, MouseEventObservableInterface&) override { ++moves; }
    void buttonPressed(MouseEventInterface&, MouseEventObservableInterface&) override {}
    void buttonReleased(MouseEventInterface&, MouseEventObservableInterface&) override {}
    void buttonDoublePressed(MouseEventInterface&, MouseEventObservableInterface&) override {}
    long moves = 0;
};

struct ImageKind {
    const char* name;
    ImageRenderingStrategy_e strategy;
    int prefersEgl;
};
// The pixmap image is the pixel buffer's stand-in on a server without pixel buffers.
const ImageKind ImageKinds[] = {{"a pixel buffer", ImageRenderingStrategy_Hardware, 0},
                                {"an EGL image", ImageRenderingStrategy_Hardware, 1},
                                {"an OSMesa image", ImageRenderingStrategy_Software, 0}};

class OurContender : public Contender {
public:
    OurContender(int argc, char** argv)
    {
        Manager::getInstance().init(argc, argv, std::string(), "benchmark");
        Manager::getInstance().start();
        m_window = std::make_unique<QMainWindow>();
        m_area = new GLDrawArea(m_window.get());
        m_area->setPageManager(Manager::getInstance().getPageManager());
        m_area->addMouseListener(&m_counter);
        m_window->setCentralWidget(m_area);
    }

    ~OurContender() override
    {
        m_window.reset();
        Manager::getInstance().stop();
    }

    const char* name() const override { return "this library"; }
    QWidget& window() override { return *m_window; }
    QWidget& inputWidget() override { return *m_area; }
    long movesHeard() const override { return m_counter.moves; }

    void setSurface(const Surface& surface) override
    {
        QTemporaryFile file;
        file.open();
        QTextStream text(&file);
        text << "ncols " << surface.side << "\nnrows " << surface.side << "\nxllcorner 0\nyllcorner 0\ncellsize 1\n";
        for (std::size_t i = 0; i < surface.heights.size(); ++i)
            text << surface.heights[i] << (int(i + 1) % surface.side == 0 ? '\n' : ' ');
        text.flush();
        if (!VelUtilDataLoad(file.fileName().toUtf8().constData()))
            qFatal("%s", VelUtilLastErrorMessage());
    }

    std::vector<std::string> imageKinds() const override
    {
        std::vector<std::string> names;
        for (const ImageKind& kind : ImageKinds)
            names.emplace_back(kind.name);
        return names;
    }

    bool exportPng(int side, const QString& file, std::size_t imageKind) override
    {
        const ImageKind& kind = ImageKinds[imageKind];
        writeStyleInteger(toolbox::StyleValue("Interface", "OpenGLConfig", "ImageRendering"), "PreferEGL",
                          kind.prefersEgl);
        const VelExportImageOptions options = {side, side, 1, ExportRegion_Page, kind.strategy, 0.0};
        return VelUtilExportImage(file.toUtf8().constData(), &options) != 0;
    }

    bool draw() override
    {
        VelUtilPageRedraw();
        return VelUtilWorkFinish() != 0;
    }

private:
    MoveCounter m_counter;
    std::unique_ptr<QMainWindow> m_window;
    GLDrawArea* m_area = nullptr;
};

} // namespace

std::unique_ptr<Contender> makeContender(int argc, char** argv)
{
    return std::make_unique<OurContender>(argc, argv);
}

} // namespace velmora::benchmark
