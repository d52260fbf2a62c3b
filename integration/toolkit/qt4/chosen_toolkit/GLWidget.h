#pragma once

#include <QGLWidget>

namespace velmora {
namespace sdk {
namespace integration {
namespace toolkit {

/// The widget that a drawing area is, its context, and what a context is asked for.
using GLWidget = QGLWidget;
using GLContext = QGLContext;
using ContextFormat = QGLFormat;

} // namespace toolkit
} // namespace integration
} // namespace sdk
} // namespace velmora
