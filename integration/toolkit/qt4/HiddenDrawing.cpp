#include "integration/toolkit/HiddenDrawing.h"

#include "integration/toolkit/CurrentContext.h"
#include "integration/toolkit/PlainPixels.h"

#include <QGLWidget>

namespace velmora::sdk::integration::toolkit {

namespace {

class HiddenWidget : public QGLWidget {
public:
    explicit HiddenWidget(const std::function<void()>& draw) : m_draw(draw) {}

protected:
    void paintGL() override
    {
        forgetPendingGLErrors();
        // The application may paint while the engine draws; the toolkit goes on with this context.
        const CurrentContextKeeper keeper;
        m_draw();
    }

private:
    const std::function<void()>& m_draw;
};

} // namespace

QImage drawHidden(const QSize& size, const std::function<void()>& draw)
{
    return HiddenWidget(draw).renderPixmap(size.width(), size.height(), false).toImage();
}

} // namespace velmora::sdk::integration::toolkit
