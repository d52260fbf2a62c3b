#pragma once

// OSMesa left Mesa with version 25.1: neither its header nor its library need be there. As it declares them:
struct osmesa_context;

namespace velmora::sdk::integration::intern {

/// The entry points of OSMesa that this library uses.
struct OSMesaLibrary {
    using Context = osmesa_context*;
    using EntryPoint = void (*)();

    /// Names of what getIntegerv() tells.
    static constexpr int MaxWidth = 0x24;
    static constexpr int MaxHeight = 0x25;

    Context (*createContextExt)(unsigned format, int depthBits, int stencilBits, int accumBits, Context share);
    void (*destroyContext)(Context context);
    unsigned char (*makeCurrent)(Context context, void* buffer, unsigned type, int width, int height);
    void (*getIntegerv)(int name, int* value);
    EntryPoint (*getProcAddress)(const char* name);
};

/// OSMesa, loaded when it is first asked for; null where it is not installed. The environment variable
/// VELMORA_OSMESA_LIBRARY names another file to load.
const OSMesaLibrary* osMesa();

} // namespace velmora::sdk::integration::intern
