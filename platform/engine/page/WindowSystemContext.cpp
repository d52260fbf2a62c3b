#include "engine/page/WindowSystemContext.h"

#include <GL/glx.h>

namespace velmora::engine {

WindowSystemContext::WindowSystemContext()
    : m_display(glXGetCurrentDisplay()), m_context(glXGetCurrentContext()), m_draw(glXGetCurrentDrawable()),
      m_read(glXGetCurrentReadDrawable())
{}

bool WindowSystemContext::makeCurrentAgain() const
{
    const auto context = static_cast<GLXContext>(m_context);
    if (!context || glXGetCurrentContext() == context)
        return true;
    return glXMakeContextCurrent(static_cast<Display*>(m_display), m_draw, m_read, context) != 0;
}

} // namespace velmora::engine
