#include "engine/text/TextPainter.h"

#include <algorithm>

namespace velmora::engine {

namespace {

// Every OpenGL takes textures of this size, and one is quickly loaded.
constexpr int LargestPiece = 512;

struct Piece {
    int x = 0; ///< in the image
    int y = 0;
    int width = 0;
    int height = 0;
};

void loadPiece(const GLFunctions& gl, const TextImage& image, const Piece& piece)
{
    gl.PixelStorei(GL_UNPACK_ROW_LENGTH, image.width);
    gl.PixelStorei(GL_UNPACK_SKIP_PIXELS, piece.x);
    gl.PixelStorei(GL_UNPACK_SKIP_ROWS, piece.y);
    gl.TexImage2D(GL_TEXTURE_2D, 0, GL_ALPHA8, piece.width, piece.height, 0, GL_ALPHA, GL_UNSIGNED_BYTE,
                  image.coverage.data());
    gl.PixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    gl.PixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    gl.PixelStorei(GL_UNPACK_SKIP_ROWS, 0);
}

void setUpTexture(const GLFunctions& gl)
{
    gl.TexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    gl.TexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    gl.TexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    gl.TexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    gl.TexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
}

void drawPiece(const GLFunctions& gl, float x, float y, const Piece& piece)
{
    const float right = x + static_cast<float>(piece.width);
    const float top = y + static_cast<float>(piece.height);
    gl.Begin(GL_TRIANGLE_FAN);
    gl.TexCoord2f(0, 0);
    gl.Vertex2f(x, y);
    gl.TexCoord2f(1, 0);
    gl.Vertex2f(right, y);
    gl.TexCoord2f(1, 1);
    gl.Vertex2f(right, top);
    gl.TexCoord2f(0, 1);
    gl.Vertex2f(x, top);
    gl.End();
}

void paintPiece(const GLFunctions& gl, const TextImage& image, int x, int y, const Piece& piece)
{
    GLuint texture = 0;
    gl.GenTextures(1, &texture);
    gl.BindTexture(GL_TEXTURE_2D, texture);
    setUpTexture(gl);
    loadPiece(gl, image, piece);
    gl.Enable(GL_TEXTURE_2D);
    drawPiece(gl, static_cast<float>(x), static_cast<float>(y), piece);
    gl.Disable(GL_TEXTURE_2D);
    gl.BindTexture(GL_TEXTURE_2D, 0);
    gl.DeleteTextures(1, &texture);
}

} // namespace

void paintTextImage(const GLFunctions& gl, const TextImage& image, int penX, int penY, int targetWidth,
                    int targetHeight)
{
    for (int top = 0; top < image.height; top += LargestPiece)
        for (int left = 0; left < image.width; left += LargestPiece) {
            const Piece piece{left, top, std::min(LargestPiece, image.width - left),
                              std::min(LargestPiece, image.height - top)};
            const int x = penX + image.left + left;
            const int y = penY + image.bottom + top;
            if (x < targetWidth && y < targetHeight && x + piece.width > 0 && y + piece.height > 0)
                paintPiece(gl, image, x, y, piece);
        }
}

} // namespace velmora::engine
