#include "benchmarks/peers/Contender.h"

#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMainWindow>

#include <Inventor/Qt/SoQt.h>
#include <Inventor/Qt/SoQtRenderArea.h>
#include <Inventor/SoOffscreenRenderer.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoQuadMesh.h>
#include <Inventor/nodes/SoSeparator.h>
#include <vector>

namespace velmora::benchmark {

namespace {

// The peer asks for an abort at every node, so that a host that wants to be interrupted cuts
// its surface into tiles.
constexpr int TilesASide = 8;

SoSeparator* tileOf(const Surface& surface, int tileX, int tileY)
{
    const int cells = surface.side - 1;
    const int x0 = cells * tileX / TilesASide, x1 = cells * (tileX + 1) / TilesASide;
    const int y0 = cells * tileY / TilesASide, y1 = cells * (tileY + 1) / TilesASide;
    std::vector<SbVec3f> points;
    for (int y = y0; y <= y1; ++y) {
        for (int x = x0; x <= x1; ++x) {
            const float height =
                surface.heights[static_cast<std::size_t>(y) * std::size_t(surface.side) + std::size_t(x)];
            points.emplace_back(float(x) / float(cells), float(y) / float(cells), 0.3f * height);
        }
    }
    SoCoordinate3* const coordinates = new SoCoordinate3;
    coordinates->point.setValues(0, int(points.size()), points.data());
    SoQuadMesh* const mesh = new SoQuadMesh;
    mesh->verticesPerRow = x1 - x0 + 1;
    mesh->verticesPerColumn = y1 - y0 + 1;
    SoSeparator* const tile = new SoSeparator;
    tile->addChild(coordinates);
    tile->addChild(mesh);
    return tile;
}

class SoQtContender : public Contender, private QObject {
public:
    SoQtContender()
    {
        SoQt::init(&m_window);
        m_root = new SoSeparator;
        m_root->ref();
        m_camera = new SoPerspectiveCamera;
        m_root->addChild(m_camera);
        m_root->addChild(new SoDirectionalLight);
        m_surface = new SoSeparator;
        m_root->addChild(m_surface);
        m_area = std::make_unique<SoQtRenderArea>(&m_window, "area", TRUE);
        m_window.setCentralWidget(m_area->getWidget());
        m_area->setSceneGraph(m_root);
        m_area->setEventCallback(&SoQtContender::eventHeard, this);
        m_area->getGLRenderAction()->setAbortCallback(&SoQtContender::abortAsked, this);
        m_area->show();
    }

    ~SoQtContender() override
    {
        m_area.reset();
        m_root->unref();
    }

    const char* name() const override { return "SoQt 1.6, Coin 4.0"; }
    QWidget& window() override { return m_window; }
    QWidget& inputWidget() override { return *m_area->getGLWidget(); }
    long movesHeard() const override { return m_moves; }

    void setSurface(const Surface& surface) override
    {
        m_surface->removeAllChildren();
        for (int tile = 0; tile < TilesASide * TilesASide; ++tile)
            m_surface->addChild(tileOf(surface, tile % TilesASide, tile / TilesASide));
        m_camera->viewAll(m_root, m_area->getViewportRegion());
    }

    bool exportPng(int side, const QString& file, std::size_t) override
    {
        SoOffscreenRenderer renderer{SbViewportRegion(static_cast<short>(side), static_cast<short>(side))};
        if (!renderer.render(m_root))
            return false;
        // Its own writer of PNG is a library that Debian does not bring along.
        const QImage upsideDown(renderer.getBuffer(), side, side, 3 * side, QImage::Format_RGB888);
        return upsideDown.mirrored().save(file, "PNG");
    }

    bool draw() override
    {
        m_escape = false;
        m_drawing = true;
        m_area->render();
        m_drawing = false;
        return !m_escape;
    }

private:
    static SbBool eventHeard(void* self, QEvent* event)
    {
        SoQtContender& contender = *static_cast<SoQtContender*>(self);
        if (event->type() == QEvent::MouseMove) {
            ++contender.m_moves;
            return TRUE; // else the peer goes on to hand it to every node
        }
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            contender.m_escape = true;
        return FALSE;
    }

    static SoGLRenderAction::AbortCode abortAsked(void* self)
    {
        SoQtContender& contender = *static_cast<SoQtContender*>(self);
        if (!contender.m_drawing)
            return SoGLRenderAction::CONTINUE;
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        return contender.m_escape ? SoGLRenderAction::ABORT : SoGLRenderAction::CONTINUE;
    }

    QMainWindow m_window;
    SoSeparator* m_root = nullptr;
    SoSeparator* m_surface = nullptr;
    SoPerspectiveCamera* m_camera = nullptr;
    std::unique_ptr<SoQtRenderArea> m_area;
    long m_moves = 0;
    bool m_drawing = false;
    bool m_escape = false;
};

} // namespace

std::unique_ptr<Contender> makeContender(int, char**)
{
    return std::make_unique<SoQtContender>();
}

} // namespace velmora::benchmark
