#pragma once

#include <QObject>

class QMenu;

namespace velmora {
namespace sdk {
namespace integration {
class GLDrawArea;
}
} // namespace sdk
} // namespace velmora

namespace viewer {

/// The commands that select what is drawn without the pointer: all of it, or one object after the other.
class ObjectMenu : public QObject {
    Q_OBJECT

public:
    /// Adds itself to the menu.
    ObjectMenu(QMenu& parentMenu, velmora::sdk::integration::GLDrawArea& area, QObject* parent);

    /// Without data there is nothing to select.
    void setEnabled(bool enabled);

Q_SIGNALS:
    void selectionChanged();

private Q_SLOTS:
    void selectNext();
    void selectPrevious();
    void selectAll();

private:
    velmora::sdk::integration::GLDrawArea& m_area;
    QMenu* m_menu;
};

} // namespace viewer
