#pragma once

#include "engine/VelContent.h"
#include "tests/offscreen/ImageKinds.h"

#include <QImage>
#include <QRect>

namespace velmora::test::model {

/// An off-screen image whose context is current for as long as it lives.
class CurrentImage {
public:
    CurrentImage(ImageKind kind, int width, int height);
    ~CurrentImage();
    CurrentImage(const CurrentImage&) = delete;
    CurrentImage& operator=(const CurrentImage&) = delete;

    /// A drawing of a frame that fills it.
    content::Drawing drawing() const;
    /// Clears it, draws and reads it; with a scissor box, in OpenGL's pixels, where there is one.
    QImage draw(content::Content& content, const content::Drawing& drawing, QRgb ground = 0xffffffff,
                const QRect& scissor = QRect());
    /// The same on white.
    QImage draw(content::Content& content, const content::Drawing& drawing, content::Checkpoint& checkpoint);

private:
    void clear(QRgb ground);
    QImage pixels() const;

    std::unique_ptr<sdk::integration::OffscreenImageInterface> m_image;
};

/// Those that VTK can draw into.
std::vector<ImageKind> kindsOfLibGL();

/// The share of the pixels that show the ground in one of the pictures only.
double differingShape(const QImage& a, const QImage& b);

} // namespace velmora::test::model
