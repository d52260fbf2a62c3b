// A model in an area whose context goes away by itself.

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "interfaces/GLContextInterface.h"
#include "interfaces/OffscreenImageInterface.h"
#include "tests/offscreen/ImageKinds.h"
#include "tests/support/SilentArea.h"
#include "tests/vtk/ModelFiles.h"
#include "tests/vtk/ModelPicture.h"
#include "tests/vtk/ModelReading.h"

#include <utility>
#include <vector>

// After Qt, whose enumerators some of Xlib's macros would replace.
#include <GL/gl.h>

namespace velmora::test::model {
namespace {

/// An area over the context of an EGL image, until that is lost.
class LosableArea final : public SilentArea, private sdk::integration::GLContextInterface {
public:
    ~LosableArea() override { detach(); }
    void show() { m_page = VelEngPageAttachDrawArea(this, nullptr); }
    void detach() { VelEngPageDetachDrawArea(std::exchange(m_page, 0)); }
    void lose() { m_isLost = true; }

    bool isVisible() const override { return true; }
    bool isValidWidget() const override { return true; }
    void getSize(int* width, int* height) const override
    {
        *width = 120;
        *height = 90;
    }
    sdk::integration::GLContextInterface& getGLContext() override { return *this; }

private:
    void swapBuffers() override {}
    bool setCurrentGL() override { return !m_isLost && m_image->getGLContext().setCurrentGL(); }
    bool clearCurrentGL() override { return true; }

    std::unique_ptr<sdk::integration::OffscreenImageInterface> m_image = createImage(ImageKind::Egl, 120, 90);
    int m_page = 0;
    bool m_isLost = false;
};

TEST(AModelWhoseContextIsLost, TakesNothingAwayFromTheContextThatIsCurrentThen)
{
    VelEngStart("", "lost context");
    {
        LosableArea area;
        content::show(read(write("waves.vtp", waves(60))));
        area.show();
        VelUtilWorkFinish();
        ASSERT_EQ(VelUtilPageIsComplete(), 1) << VelUtilLastErrorMessage();

        const CurrentImage other(ImageKind::Egl, 20, 20);
        std::vector<GLuint> textures(200);
        glGenTextures(static_cast<GLsizei>(textures.size()), textures.data());
        for (const GLuint texture : textures)
            glBindTexture(GL_TEXTURE_2D, texture);
        glBindTexture(GL_TEXTURE_2D, 0);
        area.lose();
        area.detach();
        for (const GLuint texture : textures)
            EXPECT_TRUE(glIsTexture(texture)) << texture;
    }
    VelEngStop();
}

} // namespace
} // namespace velmora::test::model
