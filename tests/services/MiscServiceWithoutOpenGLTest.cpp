// What becomes of an OpenGL that does not tell its version.
#include "integration/services/ManagerMiscService.h"

#include <GL/gl.h>
#include <QApplication>
#include <gmock/gmock.h>
#include <stdexcept>

namespace {

int questions = 0;

} // namespace

// Stands before the GL library's own for everybody in this process.
extern "C" const GLubyte* glGetString(GLenum name)
{
    questions += name == GL_VERSION ? 1 : 0;
    return nullptr;
}

namespace velmora::test {

TEST(MiscServiceWithoutOpenGL, TheVersionIsALogicErrorAndNoWidgetIsLeft)
{
    const sdk::integration::services::ManagerMiscService service;
    EXPECT_THAT([&] { service.openGLVersionString(); },
                ::testing::ThrowsMessage<std::logic_error>("basic_string::_M_construct null not valid"));
    EXPECT_GE(questions, 1); // the toolkit may ask too
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

} // namespace velmora::test
