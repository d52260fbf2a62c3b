// clang-format off
#pragma once

#include <QWidget>

namespace planted {

class Overrider : public QWidget {
    bool event(QEvent* event) override;
    bool nativeEvent(const QByteArray& type, void* message, long* result) override; // not in Qt 4: QWidget::nativeEvent, overridden
};

} // namespace planted
