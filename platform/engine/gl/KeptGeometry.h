#pragma once

#include "engine/gl/GLFunctions.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <tuple>

namespace velmora::engine {

/// Vertices and indices of triangles in main memory, as `KeptGeometry` takes them.
struct GeometryBytes {
    const void* vertices = nullptr;
    std::size_t vertexBytes = 0;
    const std::uint16_t* indices = nullptr;
    std::size_t indexCount = 0;
};

/// The geometry that drawings of one context keep for the next, in vertex buffers, where the context draws it
/// fastest. Bounded: what no drawing has used for longest makes room, and what a single drawing needs
/// beyond the bound is not kept at all. Every operation but `forget` needs the context to be current.
class KeptGeometry {
public:
    /// The data set that it was made of, its level of detail, and which piece.
    using Key = std::tuple<std::uint64_t, int, int>;

    struct Entry {
        GLuint vertices = 0;
        GLuint indices = 0;
        GLsizei indexCount = 0;
    };

    /// A drawing begins: of other data sets nothing is needed any more.
    void beginDrawing(const GLFunctions& gl, std::uint64_t dataSet, std::size_t mostBytes);
    /// What is kept under the key, or null.
    const Entry* find(const Key& key);
    /// Keeps geometry; null when there is no room for it, or no such thing as a vertex buffer.
    const Entry* add(const GLFunctions& gl, const Key& key, const GeometryBytes& bytes);
    std::size_t bytes() const { return m_bytes; }

    void release(const GLFunctions& gl);
    /// Forgets objects whose context is gone.
    void forget();

private:
    struct Kept {
        Key key;
        Entry entry;
        std::size_t bytes = 0;
        unsigned long usedIn = 0; ///< number of the drawing
    };
    using KeptList = std::list<Kept>;

    bool makeRoom(const GLFunctions& gl, std::size_t needed);
    void remove(const GLFunctions& gl, KeptList::iterator kept);

    KeptList m_kept; ///< used last, first
    std::map<Key, KeptList::iterator> m_places;
    std::size_t m_bytes = 0;
    std::size_t m_mostBytes = 0;
    unsigned long m_drawing = 0;
};

} // namespace velmora::engine
