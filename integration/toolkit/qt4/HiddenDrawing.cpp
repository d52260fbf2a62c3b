#include "integration/toolkit/HiddenDrawing.h"

#include "integration/opengl/FramebufferReader.h"
#include "integration/toolkit/CurrentContext.h"

#include <QGLWidget>

namespace velmora::sdk::integration::toolkit {

namespace {

intern::ReadingGL::EntryPoint entryPoint(const char* name)
{
    return reinterpret_cast<intern::ReadingGL::EntryPoint>(
        QGLContext::currentContext()->getProcAddress(QLatin1String(name)));
}

class HiddenWidget : public QGLWidget {
public:
    explicit HiddenWidget(const std::function<void()>& draw) : m_draw(draw) {}

    /// Null when the toolkit could not read what was drawn, of which it says nothing.
    QImage drawn(const QSize& size)
    {
        const QImage picture = renderPixmap(size.width(), size.height(), false).toImage();
        makeCurrent();
        return m_isReadable && intern::ReadingGL(entryPoint).succeeded() ? picture : QImage();
    }

protected:
    void paintGL() override
    {
        const intern::ReadingGL gl(entryPoint);
        gl.forgetErrors();
        const GLuint framebuffer = intern::boundFramebuffer(gl);
        {
            // The application may paint while the engine draws; the toolkit goes on with this context.
            const CurrentContextKeeper keeper;
            m_draw();
        }
        m_isReadable = intern::prepareToBeRead(gl, framebuffer);
    }

private:
    const std::function<void()>& m_draw;
    bool m_isReadable = false;
};

} // namespace

QImage drawHidden(const QSize& size, const std::function<void()>& draw)
{
    return HiddenWidget(draw).drawn(size);
}

} // namespace velmora::sdk::integration::toolkit
