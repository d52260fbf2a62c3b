#pragma once

#include <QObject>

class QMenu;
class QToolBar;

namespace velmora {
namespace sdk {
namespace integration {
class GLDrawArea;
}
} // namespace sdk
} // namespace velmora

namespace viewer {

/// The commands that show everything, and that zoom about the middle.
class ViewCommands : public QObject {
    Q_OBJECT

public:
    /// Adds its commands to the menu, and the first to the tool bar.
    ViewCommands(QMenu& menu, QToolBar& toolBar, velmora::sdk::integration::GLDrawArea& area, QObject* parent);

private Q_SLOTS:
    void fit();
    void reset();
    void zoomIn();
    void zoomOut();

private:
    void zoom(double factor);

    velmora::sdk::integration::GLDrawArea& m_area;
};

} // namespace viewer
