#pragma once

#include <QGLWidget>

namespace velmora {
namespace sdk {
namespace integration {
namespace toolkit {

/// The widget that a drawing area is.
using GLWidget = QGLWidget;
/// The OpenGL context of such a widget.
using GLContext = QGLContext;
/// What such a context is asked for, and what it has.
using ContextFormat = QGLFormat;

} // namespace toolkit
} // namespace integration
} // namespace sdk
} // namespace velmora
