#pragma once

#include <QString>
#include <memory>
#include <string>
#include <vector>

class QWidget;

namespace velmora::benchmark {

/// Heights over a square of `side` by `side` points, row by row.
struct Surface {
    int side = 0;
    std::vector<float> heights;
};

/// A hilly island, the same for every contender.
Surface islandOf(int side);

/// One way to show a surface in a Qt window: this library's or a peer's, written as the peer's own
/// examples do it. GUI thread.
class Contender {
public:
    virtual ~Contender() = default;
    virtual const char* name() const = 0;
    /// The window to show, and the widget in it that a person's mouse moves go to.
    virtual QWidget& window() = 0;
    virtual QWidget& inputWidget() = 0;
    /// Replaces what the window shows.
    virtual void setSurface(const Surface& surface) = 0;
    /// How many mouse moves the one listener has heard.
    virtual long movesHeard() const = 0;
    /// The kinds of off-screen image that it draws pictures into.
    virtual std::vector<std::string> imageKinds() const { return {"its own off-screen window"}; }
    /// Writes the picture, `side` by `side` pixels, as PNG, drawn into an image of that place in `imageKinds`.
    virtual bool exportPng(int side, const QString& file, std::size_t imageKind) = 0;
    /// Draws the window's picture anew. The application gets its turns while it lasts, and Escape
    /// ends it early; false then.
    virtual bool draw() = 0;
};

/// The one contender of this program, made once the QApplication is there.
std::unique_ptr<Contender> makeContender(int argc, char** argv);

} // namespace velmora::benchmark
