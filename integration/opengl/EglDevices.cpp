#include "integration/opengl/EglDevices.h"

#include <algorithm>
#include <cstring>

namespace velmora::sdk::integration::intern {

namespace {

bool lists(const char* extensions, const char* name)
{
    return extensions && std::strstr(extensions, name);
}

template <typename Function>
Function extension(const EglLibrary& library, const char* name)
{
    return reinterpret_cast<Function>(library.GetProcAddress(name));
}

class Platforms {
public:
    explicit Platforms(const EglLibrary& library)
        : m_library(library), m_extensions(library.QueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS)),
          m_displayOf(extension<PFNEGLGETPLATFORMDISPLAYEXTPROC>(library, "eglGetPlatformDisplayEXT"))
    {}

    std::vector<EglDevice> devices() const
    {
        const auto query = extension<PFNEGLQUERYDEVICESEXTPROC>(m_library, "eglQueryDevicesEXT");
        EGLint count = 0;
        if (!lists(m_extensions, "EGL_EXT_platform_device") || !m_displayOf || !query || !query(0, nullptr, &count))
            return {};
        std::vector<EGLDeviceEXT> handles(static_cast<std::size_t>(std::max(count, 0)));
        std::vector<EglDevice> all;
        if (query(count, handles.data(), &count))
            for (EGLDeviceEXT handle : handles)
                all.push_back({m_displayOf(EGL_PLATFORM_DEVICE_EXT, handle, nullptr), isSoftware(handle)});
        return all;
    }

    /// Mesa's own way, which also serves where devices cannot be told apart.
    std::vector<EglDevice> surfaceless() const
    {
        if (!lists(m_extensions, "EGL_MESA_platform_surfaceless") || !m_displayOf)
            return {};
        return {{m_displayOf(EGL_PLATFORM_SURFACELESS_MESA, nullptr, nullptr), false}};
    }

private:
    bool isSoftware(EGLDeviceEXT handle) const
    {
        const auto query = extension<PFNEGLQUERYDEVICESTRINGEXTPROC>(m_library, "eglQueryDeviceStringEXT");
        return query && lists(query(handle, EGL_EXTENSIONS), "EGL_MESA_device_software");
    }

    const EglLibrary& m_library;
    const char* m_extensions;
    PFNEGLGETPLATFORMDISPLAYEXTPROC m_displayOf;
};

} // namespace

std::vector<EglDevice> eglDevices(const EglLibrary& library, EglRenderer renderer)
{
    const Platforms platforms(library);
    std::vector<EglDevice> all = platforms.devices();
    const auto firstSoftware =
        std::stable_partition(all.begin(), all.end(), [](const EglDevice& device) { return !device.isKnownSoftware; });
    if (renderer == EglRenderer::Software)
        all.erase(all.begin(), firstSoftware);
    const std::vector<EglDevice> surfaceless = platforms.surfaceless();
    all.insert(all.end(), surfaceless.begin(), surfaceless.end());
    all.erase(std::remove_if(all.begin(), all.end(),
                             [](const EglDevice& device) { return device.display == EGL_NO_DISPLAY; }),
              all.end());
    return all;
}

} // namespace velmora::sdk::integration::intern
