// clang-format off
// Not compiled into anything: uses of what Qt got after 4.8, each marked, among uses that both have.
#include "tests/toolkit/qt4/LaterApi.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QGLWidget>
#include <QHash>
#include <QImage>
#include <QMouseEvent>
#include <QObject>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression> // not in Qt 4: #include <QRegularExpression>
#include <QSaveFile>          // not in Qt 4: #include <QSaveFile>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <QWindow>           // not in Qt 4: #include <QWindow>
#include <QtWidgets/QDialog> // not in Qt 4: #include <QtWidgets/QDialog>

namespace planted {

void classes() {
    QSaveFile file;            // not in Qt 4: QSaveFile
    const QWindow* window;     // not in Qt 4: QWindow
    const QDialog* dialog;     // a class of both
    QSurfaceFormat* format;    // not in Qt 4: QSurfaceFormat
}

void members(QWidget& widget, QMouseEvent& event, QWheelEvent& wheel, const QString& text) {
    widget.windowHandle();            // not in Qt 4: QWidget::windowHandle
    widget.windowTitle();             // a member of both
    event.localPos();                 // not in Qt 4: QMouseEvent::localPos
    event.pos();                      // a member of both
    wheel.angleDelta();               // not in Qt 4: QWheelEvent::angleDelta
    text.toHtmlEscaped();             // not in Qt 4: QString::toHtmlEscaped
    QApplication::clipboard();        // inherited in Qt 5, a member of the class itself in Qt 4
    QGuiApplication::focusWindow();   // not in Qt 4: QGuiApplication; QGuiApplication::focusWindow
    QFileInfo::exists("name");        // not in Qt 4: QFileInfo::exists with 1 argument
    QFileInfo("name").exists();       // the other overload is old
    auto pointer = &QWidget::hasHeightForWidth; // not in Qt 4: QWidget::hasHeightForWidth
}

void overloads(QObject& object, QAction& action, QPushButton& button) {
    QTimer::singleShot(0, &object, SLOT(deleteLater()));
    QTimer::singleShot(0, [] {}); // not in Qt 4: QTimer::singleShot with 2 arguments
    QObject::connect(&button, SIGNAL(clicked()), &action, SLOT(trigger()));
    QObject::connect(&button, &QPushButton::clicked, &action, &QAction::trigger); // not in Qt 4: QObject::connect with 4 arguments
    QObject::connect(&button, SIGNAL(clicked()), &action, SLOT(resetEnabled())); // not in Qt 4: QAction::resetEnabled()
    QObject::connect(&button, SIGNAL(objectNameChanged(QString)), &action, SLOT(setText(QString))); // not in Qt 4: QPushButton::objectNameChanged(QString)
    const QHash<int, int> table{{1, 2}}; // not in Qt 4: QHash::QHash with 1 argument
    const QString both = QString("%1 %2").arg("a", "b");
}

void macros() {
    const QString text = QStringLiteral("text"); // not in Qt 4: QStringLiteral
    int value = 0;
    switch (value) {
    case 0:
        value = 1;
        Q_FALLTHROUGH(); // not in Qt 4: Q_FALLTHROUGH
    default:
        Q_ASSERT(text.isNull());
        Q_ASSERT(text.isUpper()); // not in Qt 4: QString::isUpper
        Q_ASSERT(text.contains("a word"));
        Q_ASSERT(QFileInfo::exists("name")); // not in Qt 4: QFileInfo::exists with 1 argument
    }
    qDebug("a function in Qt 4, a macro in Qt 5");
}

void enumerators(QPainter& painter, QImage image) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::LosslessImageRendering); // not in Qt 4: QPainter::LosslessImageRendering
    image.convertToFormat(QImage::Format_ARGB32);
    image = image.convertToFormat(QImage::Format_RGBA8888); // not in Qt 4: QImage::Format_RGBA8888
    image.setDevicePixelRatio(2.0); // not in Qt 4: QImage::setDevicePixelRatio
    const auto late = QEvent::PlatformSurface; // not in Qt 4: QEvent::PlatformSurface
    const auto early = Qt::LeftButton | Qt::RightButton;
}

bool Overrider::event(QEvent* event) {
    return QWidget::event(event);
}

} // namespace planted
