#include "tests/vtk/ModelPicture.h"

#include "integration/services/OffscreenImageService.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"

#include <algorithm>
#include <stdexcept>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/gl.h>

namespace velmora::test::model {

CurrentImage::CurrentImage(ImageKind kind, int width, int height) : m_image(createImage(kind, width, height))
{
    if (!m_image->getGLContext().setCurrentGL())
        throw std::runtime_error("The image's context cannot be made current.");
}

CurrentImage::~CurrentImage()
{
    sdk::integration::services::OffscreenImageService().imageDestroy(m_image.release());
}

content::Drawing CurrentImage::drawing() const
{
    content::Drawing drawing;
    drawing.targetWidth = m_image->width();
    drawing.targetHeight = m_image->height();
    drawing.frameWidth = m_image->width();
    drawing.frameHeight = m_image->height();
    return drawing;
}

QImage CurrentImage::draw(content::Content& content, const content::Drawing& drawing, QRgb ground, const QRect& scissor)
{
    clear(ground);
    if (!scissor.isNull())
        glEnable(GL_SCISSOR_TEST);
    glScissor(scissor.x(), scissor.y(), scissor.width(), scissor.height());
    content::NoCheckpoint checkpoint;
    const bool isWhole = content.draw(drawing, checkpoint);
    glDisable(GL_SCISSOR_TEST);
    return isWhole ? pixels() : QImage();
}

QImage CurrentImage::draw(content::Content& content, const content::Drawing& drawing, content::Checkpoint& checkpoint)
{
    constexpr QRgb White = 0xffffffff;
    clear(White);
    return content.draw(drawing, checkpoint) ? pixels() : QImage();
}

void CurrentImage::clear(QRgb ground)
{
    glViewport(0, 0, m_image->width(), m_image->height());
    glClearColor(qRed(ground) / 255.F, qGreen(ground) / 255.F, qBlue(ground) / 255.F, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

QImage CurrentImage::pixels() const
{
    QImage found(m_image->width(), m_image->height(), QImage::Format_RGB32);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, found.width(), found.height(), GL_BGRA, GL_UNSIGNED_BYTE, found.bits());
    return found.mirrored().convertToFormat(QImage::Format_RGB32);
}

std::vector<ImageKind> kindsOfLibGL()
{
    std::vector<ImageKind> kinds = drawnKinds();
    kinds.erase(std::remove(kinds.begin(), kinds.end(), ImageKind::Software), kinds.end());
    return kinds;
}

double differingShape(const QImage& a, const QImage& b)
{
    constexpr QRgb White = 0xffffffff;
    int differing = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            differing += (a.pixel(x, y) == White) != (b.pixel(x, y) == White) ? 1 : 0;
    return static_cast<double>(differing) / (a.width() * a.height());
}

} // namespace velmora::test::model
