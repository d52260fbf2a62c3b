#pragma once

#include <QWidget>

namespace velmora {
namespace sdk {
namespace integration {

/// What Designer shows in the place of a drawing area: a grey ground with the area's name in the middle.
///
/// The area itself cannot live there. No engine runs that would paint it, so it would show what happens to lie in its
/// buffers; and where there is no OpenGL its constructor throws, which Designer does not catch.
///
/// It is called as the area is, because Designer and QFormBuilder write into a form what the meta-object of a widget
/// says of its class. The plugin exports no symbol of it and is not linked with the library.
class GLDrawArea : public QWidget {
    Q_OBJECT

public:
    explicit GLDrawArea(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace integration
} // namespace sdk
} // namespace velmora
