#pragma once

#include "integration/opengl/ImageFramebuffer.h"

#include <cstdint>

namespace velmora::sdk::integration::intern {

/// Reads the colours of the framebuffer as pixels 0xXXRRGGBB, the top row first and the rows one after the
/// other; the highest byte is the alpha that was drawn. False when that fails, for whatever reason: out of
/// memory, a lost context, a read buffer of GL_NONE, a glBegin that was left open; what `pixels` hold then
/// is no picture. The framebuffer's context is current. The state that the drawing left does not matter
/// and is there again afterwards, except that the framebuffer is bound and that errors are forgotten.
bool readFramebuffer(const ReadingGL& gl, const ImageFramebuffer& framebuffer, std::uint32_t* pixels);

/// Before somebody who asks for no errors reads a framebuffer of the current context: binds it and undoes
/// what the drawing left that would spoil the pixels. False when it cannot be read. Errors are forgotten.
bool prepareToBeRead(const ReadingGL& gl, GLuint framebuffer);

} // namespace velmora::sdk::integration::intern
