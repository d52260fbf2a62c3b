#pragma once

#include <memory>
#include <vector>

namespace velmora::test {

/// An OpenGL context that draws by software and needs no display: OSMesa where that is installed, else EGL.
/// Its framebuffer 0 can be drawn into and read, as that of a window.
class SoftwareContext {
public:
    using EntryPoint = void (*)();

    /// Throws std::runtime_error where there is neither.
    static std::unique_ptr<SoftwareContext> create();
    virtual ~SoftwareContext() = default;
    SoftwareContext(const SoftwareContext&) = delete;
    SoftwareContext& operator=(const SoftwareContext&) = delete;

    /// With a framebuffer 0 of that size; another size loses what it held.
    virtual bool makeCurrent(int width, int height) = 0;
    virtual void release() = 0;
    virtual EntryPoint entryPoint(const char* name) const = 0;

    template <typename Function>
    Function* function(const char* name) const
    {
        return reinterpret_cast<Function*>(entryPoint(name));
    }

    /// While it is current: what framebuffer 0 holds, bytes RGBA from the bottom row on.
    void read(int width, int height, std::vector<unsigned char>& rgba) const;
    /// While it is current: fills framebuffer 0 with a grey.
    void fill(unsigned char grey) const;

protected:
    SoftwareContext() = default;
};

} // namespace velmora::test
