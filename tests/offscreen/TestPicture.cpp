#include "tests/offscreen/TestPicture.h"

#include <QColor>
#include <QPainter>
#include <vector>

namespace velmora::test {

namespace {

struct Tile {
    QRect area; ///< y downwards
    QColor color;
};

std::vector<Tile> layout(int width, int height, int variant)
{
    std::vector<Tile> all;
    const int columns[] = {0, width / 5, width / 2, width};
    const int rows[] = {0, height / 4, height / 3, height};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column) {
            const int n = row * 3 + column;
            const QRect area(columns[column], rows[row], columns[column + 1] - columns[column],
                             rows[row + 1] - rows[row]);
            const QColor color((20 + n * 26 + variant * 61) & 255, (250 - n * 24 + variant * 33) & 255,
                               (90 + n * 71 + variant * 17) & 255);
            if (!area.isEmpty())
                all.push_back({area, color});
        }
    return all;
}

void clearTo(const GLTable& gl, const QColor& color)
{
    gl.clearColor(static_cast<float>(color.redF()), static_cast<float>(color.greenF()),
                  static_cast<float>(color.blueF()), 1.0f);
    gl.clear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void quad(const GLTable& gl, float left, float right, float z)
{
    gl.begin(GL_QUADS);
    gl.vertex3f(left, -1.0f, z);
    gl.vertex3f(right, -1.0f, z);
    gl.vertex3f(right, 1.0f, z);
    gl.vertex3f(left, 1.0f, z);
    gl.end();
}

void unitView(const GLTable& gl, int width, int height)
{
    gl.viewport(0, 0, width, height);
    gl.matrixMode(GL_PROJECTION);
    gl.loadIdentity();
    gl.matrixMode(GL_MODELVIEW);
    gl.loadIdentity();
    gl.disable(GL_SCISSOR_TEST);
}

} // namespace

void drawTiles(const GLTable& gl, int width, int height, int variant)
{
    gl.enable(GL_SCISSOR_TEST);
    for (const Tile& tile : layout(width, height, variant)) {
        gl.scissor(tile.area.x(), height - tile.area.y() - tile.area.height(), tile.area.width(), tile.area.height());
        clearTo(gl, tile.color);
    }
    gl.disable(GL_SCISSOR_TEST);
    gl.finish();
}

QImage tiles(int width, int height, int variant)
{
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    for (const Tile& tile : layout(width, height, variant))
        painter.fillRect(tile.area, tile.color);
    return image;
}

void drawDepthTested(const GLTable& gl, int width, int height)
{
    unitView(gl, width, height);
    clearTo(gl, Qt::black);
    gl.enable(GL_DEPTH_TEST);
    gl.depthFunc(GL_LESS);
    gl.color3ub(255, 0, 0);
    quad(gl, -1.0f, 0.5f, -0.5f);
    gl.color3ub(0, 255, 0);
    quad(gl, -0.5f, 1.0f, 0.5f);
    gl.disable(GL_DEPTH_TEST);
    gl.finish();
}

QImage depthTested(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(0xff00ff00u);
    QPainter(&image).fillRect(0, 0, width * 3 / 4, height, Qt::red);
    return image;
}

void drawDiagonal(const GLTable& gl, int width, int height)
{
    unitView(gl, width, height);
    clearTo(gl, Qt::black);
    gl.color3ub(255, 255, 255);
    gl.begin(GL_TRIANGLES);
    gl.vertex3f(-1.0f, -1.0f, 0.0f);
    gl.vertex3f(1.0f, -1.0f, 0.0f);
    gl.vertex3f(1.0f, 0.83f, 0.0f);
    gl.end();
    gl.finish();
}

void drawCorner(const GLTable& gl, int width, int height)
{
    gl.disable(GL_SCISSOR_TEST);
    clearTo(gl, Qt::black);
    gl.enable(GL_SCISSOR_TEST);
    gl.scissor(0, 0, width / 4, height / 4);
    clearTo(gl, Qt::white);
    gl.disable(GL_SCISSOR_TEST);
    gl.finish();
}

} // namespace velmora::test
