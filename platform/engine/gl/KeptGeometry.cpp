#include "engine/gl/KeptGeometry.h"

namespace velmora::engine {

void KeptGeometry::beginDrawing(const GLFunctions& gl, std::uint64_t dataSet, std::size_t mostBytes)
{
    ++m_drawing;
    m_mostBytes = mostBytes;
    for (auto kept = m_kept.begin(); kept != m_kept.end();) {
        const auto here = kept++;
        if (std::get<0>(here->key) != dataSet)
            remove(gl, here);
    }
}

const KeptGeometry::Entry* KeptGeometry::find(const Key& key)
{
    const auto place = m_places.find(key);
    if (place == m_places.end())
        return nullptr;
    m_kept.splice(m_kept.begin(), m_kept, place->second);
    m_kept.front().usedIn = m_drawing;
    return &m_kept.front().entry;
}

const KeptGeometry::Entry* KeptGeometry::add(const GLFunctions& gl, const Key& key, const GeometryBytes& bytes)
{
    const std::size_t needed = bytes.vertexBytes + bytes.indexCount * sizeof(std::uint16_t);
    if (!gl.hasVertexBuffers() || !makeRoom(gl, needed))
        return nullptr;
    Entry entry;
    entry.indexCount = static_cast<GLsizei>(bytes.indexCount);
    gl.GenBuffers(1, &entry.vertices);
    gl.GenBuffers(1, &entry.indices);
    gl.BindBuffer(GL_ARRAY_BUFFER, entry.vertices);
    gl.BufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(bytes.vertexBytes), bytes.vertices, GL_STATIC_DRAW);
    gl.BindBuffer(GL_ELEMENT_ARRAY_BUFFER, entry.indices);
    gl.BufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(bytes.indexCount * sizeof(std::uint16_t)),
                  bytes.indices, GL_STATIC_DRAW);
    gl.BindBuffer(GL_ARRAY_BUFFER, 0);
    gl.BindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
    m_kept.push_front({key, entry, needed, m_drawing});
    m_places[key] = m_kept.begin();
    m_bytes += needed;
    return &m_kept.front().entry;
}

// What the current drawing has used already, it would only make anew the next time.
bool KeptGeometry::makeRoom(const GLFunctions& gl, std::size_t needed)
{
    while (m_bytes + needed > m_mostBytes) {
        if (m_kept.empty() || m_kept.back().usedIn == m_drawing)
            return false;
        remove(gl, --m_kept.end());
    }
    return true;
}

void KeptGeometry::remove(const GLFunctions& gl, KeptList::iterator kept)
{
    gl.DeleteBuffers(1, &kept->entry.vertices);
    gl.DeleteBuffers(1, &kept->entry.indices);
    m_bytes -= kept->bytes;
    m_places.erase(kept->key);
    m_kept.erase(kept);
}

void KeptGeometry::release(const GLFunctions& gl)
{
    while (!m_kept.empty())
        remove(gl, m_kept.begin());
}

void KeptGeometry::forget()
{
    m_places.clear();
    m_kept.clear();
    m_bytes = 0;
}

} // namespace velmora::engine
