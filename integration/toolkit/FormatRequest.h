#pragma once

namespace velmora::sdk::integration::toolkit {

/// What the configuration asks of an OpenGL context, in bits and samples a pixel; what is not above 0 is left to
/// the toolkit.
struct FormatRequest {
    int depthSize = 0;
    int samples = 0;
    int accumSize = 0;
};

} // namespace velmora::sdk::integration::toolkit
