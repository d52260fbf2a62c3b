#include "integration/toolkit/TemporaryContext.h"

#include "integration/toolkit/CurrentContext.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>

namespace velmora::sdk::integration::toolkit {

struct TemporaryContext::Impl {
    QOffscreenSurface surface;
    QOpenGLContext context;
};

TemporaryContext::TemporaryContext() : m_impl(std::make_unique<Impl>())
{
    releaseCurrentContext();
    if (!m_impl->context.create())
        return;
    m_impl->surface.setFormat(m_impl->context.format());
    m_impl->surface.create();
    m_impl->context.makeCurrent(&m_impl->surface);
}

TemporaryContext::~TemporaryContext()
{
    releaseCurrentContext();
}

} // namespace velmora::sdk::integration::toolkit
