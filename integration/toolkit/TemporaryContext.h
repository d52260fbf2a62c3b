#pragma once

#include <memory>

namespace velmora::sdk::integration::toolkit {

/// An OpenGL context of the toolkit's default format, current while it lives; afterwards none is. Where there is
/// no OpenGL none is current meanwhile either. GUI thread only.
class TemporaryContext {
public:
    TemporaryContext();
    ~TemporaryContext();
    TemporaryContext(const TemporaryContext&) = delete;
    TemporaryContext& operator=(const TemporaryContext&) = delete;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace velmora::sdk::integration::toolkit
