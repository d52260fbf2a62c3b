#include "engine/gl/GLFunctions.h"
#include "integration/opengl/OSMesaLibrary.h"
#include "integration/opengl/SurfacelessContext.h"
#include "tests/platform/plot/Picture.h"

#include <gtest/gtest.h>

#include <GL/glx.h>

using namespace velmora::engine;
using namespace velmora::engine::test;
using namespace velmora::sdk::integration::intern;

namespace {

/// One connection for the whole program: closing it unloads the driver, and what the driver keeps to
/// its end would count as leaked by nobody.
Display* openDisplay()
{
    static Display* const display = XOpenDisplay(nullptr);
    return display;
}

/// A GLX context with a small window that is never mapped.
class GlxContext {
public:
    GlxContext() : m_display(openDisplay())
    {
        if (!m_display)
            return;
        int attributes[] = {GLX_RGBA, GLX_RED_SIZE, 8, GLX_GREEN_SIZE, 8, GLX_BLUE_SIZE, 8, 0};
        XVisualInfo* visual = glXChooseVisual(m_display, DefaultScreen(m_display), attributes);
        if (!visual)
            return;
        XSetWindowAttributes wanted{};
        wanted.colormap = XCreateColormap(m_display, DefaultRootWindow(m_display), visual->visual, AllocNone);
        m_window = XCreateWindow(m_display, DefaultRootWindow(m_display), 0, 0, 32, 32, 0, visual->depth, InputOutput,
                                 visual->visual, CWColormap | CWBorderPixel, &wanted);
        m_context = glXCreateContext(m_display, visual, nullptr, True);
        XFree(visual);
    }
    ~GlxContext()
    {
        if (!m_window)
            return;
        release();
        if (m_context)
            glXDestroyContext(m_display, m_context);
        XDestroyWindow(m_display, m_window);
    }
    GlxContext(const GlxContext&) = delete;
    GlxContext& operator=(const GlxContext&) = delete;

    bool makeCurrent() const { return m_context && glXMakeCurrent(m_display, m_window, m_context); }
    void release() const { glXMakeCurrent(m_display, 0, nullptr); }

private:
    Display* m_display;
    Window m_window = 0;
    GLXContext m_context = nullptr;
};

/// Clears to a colour through a table and reads it back through the same.
int redAfterClearing(const GLFunctions& gl, float red)
{
    gl.ClearColor(red, 0, 0, 1);
    gl.Clear(GL_COLOR_BUFFER_BIT);
    unsigned char pixel[4] = {};
    gl.ReadPixels(0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    return pixel[0];
}

} // namespace

TEST(CurrentGL, WithoutAContextThereIsTheTableOfLibGL)
{
    EXPECT_NE(currentGL().Clear, nullptr);
    EXPECT_EQ(&currentGL(), &currentGL());
}

TEST(CurrentGL, FollowsTheContextThatIsCurrent)
{
    const GlxContext window;
    ASSERT_TRUE(window.makeCurrent());
    const GLFunctions* windowTable = &currentGL();
    EXPECT_NE(windowTable->GetString(GL_VERSION), nullptr);
    window.release();
    {
        Picture picture(8, 8);
        EXPECT_NE(&currentGL(), windowTable);
        EXPECT_EQ(redAfterClearing(currentGL(), 1), 255);
        picture.refresh();
        EXPECT_EQ(picture.at(3, 3).red, 255);
    }
    ASSERT_TRUE(window.makeCurrent());
    EXPECT_EQ(&currentGL(), windowTable);
    EXPECT_NE(currentGL().GetString(GL_VERSION), nullptr);
    window.release();
}

TEST(CurrentGL, KnowsWhichOfTheLibrariesHasTheContext)
{
    const GlxContext window;
    const auto surfaceless = SurfacelessContext::create(EglRenderer::Any);
    ASSERT_NE(surfaceless, nullptr);
    std::vector<const GLFunctions*> tables;
    const auto note = [&tables] {
        EXPECT_NE(currentGL().GetString(GL_VERSION), nullptr);
        tables.push_back(&currentGL());
    };
    for (int turn = 0; turn < 2; ++turn) {
        ASSERT_TRUE(window.makeCurrent());
        note();
        window.release();
        ASSERT_TRUE(surfaceless->makeCurrent());
        note();
        surfaceless->release();
        if (osMesa()) {
            const Picture picture(8, 8);
            note();
        }
    }
    const std::size_t kinds = tables.size() / 2;
    for (std::size_t i = 0; i < kinds; ++i) {
        EXPECT_EQ(tables[i], tables[kinds + i]);
        EXPECT_NE(tables[i], tables[(i + 1) % kinds]);
    }
}

TEST(CurrentGL, AFramebufferObjectIsDrawnThroughEveryTable)
{
    const auto drawsIntoOne = [](const GLFunctions& gl) {
        if (!gl.hasFramebufferObjects())
            return false;
        GLuint names[2] = {};
        gl.GenFramebuffers(1, &names[0]);
        gl.GenRenderbuffers(1, &names[1]);
        gl.BindFramebuffer(GL_FRAMEBUFFER, names[0]);
        gl.BindRenderbuffer(GL_RENDERBUFFER, names[1]);
        gl.RenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, 8, 8);
        gl.FramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, names[1]);
        const bool isRight = gl.CheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE &&
                             redAfterClearing(gl, 0.4F) == 102 && gl.IsFramebuffer(names[0]);
        gl.BindFramebuffer(GL_FRAMEBUFFER, 0);
        gl.DeleteFramebuffers(1, &names[0]);
        gl.DeleteRenderbuffers(1, &names[1]);
        return isRight && gl.GetError() == GL_NO_ERROR;
    };
    const GlxContext window;
    ASSERT_TRUE(window.makeCurrent());
    EXPECT_TRUE(drawsIntoOne(currentGL()));
    window.release();
    {
        const Picture picture(8, 8);
        EXPECT_TRUE(drawsIntoOne(currentGL()));
    }
    const auto surfaceless = SurfacelessContext::create(EglRenderer::Any);
    ASSERT_TRUE(surfaceless && surfaceless->makeCurrent());
    EXPECT_TRUE(drawsIntoOne(currentGL()));
}

// To hand the picture out at every portion would cost more than to draw it.
TEST(CurrentGL, WaitingForADrawingDoesNotHandOutThePictureOfASoftwareContext)
{
    if (!osMesa())
        GTEST_SKIP() << "OSMesa is not installed";
    constexpr int Side = 8;
    unsigned picture[Side * Side] = {};
    const OSMesaLibrary::Context context = osMesa()->createContextExt(GL_RGBA, 0, 0, 0, nullptr);
    ASSERT_TRUE(osMesa()->makeCurrent(context, picture, GL_UNSIGNED_BYTE, Side, Side));
    const GLFunctions gl = currentGL();
    gl.ClearColor(1, 1, 1, 1);
    gl.Clear(GL_COLOR_BUFFER_BIT);
    gl.waitUntilDrawn();
    EXPECT_EQ(picture[0], 0U);
    gl.Finish();
    EXPECT_EQ(picture[0], 0xFFFFFFFFU);
    osMesa()->makeCurrent(nullptr, nullptr, GL_UNSIGNED_BYTE, 0, 0);
    osMesa()->destroyContext(context);
}
