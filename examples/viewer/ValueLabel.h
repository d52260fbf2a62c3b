#pragma once

#include "interfaces/MouseEventListenerInterface.h"
#include "interfaces/OnIdleListenerInterface.h"

#include <QLabel>
#include <QPoint>

namespace velmora {
namespace sdk {
namespace integration {
class GLDrawArea;
} // namespace integration
} // namespace sdk
} // namespace velmora

namespace viewer {

/// Tells in the status bar which value is under the pointer, and has the engine mark it in the picture. Tells
/// nothing while a button is pressed or the engine is busy, and when the pointer is elsewhere.
class ValueLabel : public QLabel,
                   public velmora::sdk::integration::MouseEventListenerInterface,
                   public velmora::sdk::integration::OnIdleListenerInterface {
    Q_OBJECT

public:
    explicit ValueLabel(velmora::sdk::integration::GLDrawArea& area);
    ~ValueLabel() override;

    void mouseMoved(velmora::sdk::integration::MouseEventInterface& event,
                    velmora::sdk::integration::MouseEventObservableInterface& source) override;
    void buttonPressed(velmora::sdk::integration::MouseEventInterface& event,
                       velmora::sdk::integration::MouseEventObservableInterface& source) override;
    void buttonReleased(velmora::sdk::integration::MouseEventInterface& event,
                        velmora::sdk::integration::MouseEventObservableInterface& source) override;
    void buttonDoublePressed(velmora::sdk::integration::MouseEventInterface& event,
                             velmora::sdk::integration::MouseEventObservableInterface& source) override;
    void onIdle(velmora::sdk::integration::OnIdleObservableInterface& source) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showValueAt(const QPoint& position);
    void showNothing();

    bool m_isPressed = false; ///< a button, in the area
    bool m_isInside = false;  ///< the pointer in the area
    QPoint m_position;        ///< of it, in pixels of the screen
};

} // namespace viewer
