#include "integration/toolkit/TemporaryContext.h"

#include <QGLWidget>

namespace velmora::sdk::integration::toolkit {

struct TemporaryContext::Impl {
    QGLWidget widget;
};

TemporaryContext::TemporaryContext() : m_impl(std::make_unique<Impl>())
{
    m_impl->widget.makeCurrent();
}

TemporaryContext::~TemporaryContext()
{
    m_impl->widget.doneCurrent();
}

} // namespace velmora::sdk::integration::toolkit
