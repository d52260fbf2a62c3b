#pragma once

namespace velmora::sdk::integration::intern {

/// A member that keeps its owner in the list of all objects of the owner's type. The list is linked
/// through the objects themselves and its head needs no destructor, so that objects may come and go
/// during the destruction of statics too. One thread only.
template <typename Owner>
class LiveObject {
public:
    explicit LiveObject(Owner& owner) : m_owner(owner), m_next(s_first) { s_first = this; }
    ~LiveObject()
    {
        LiveObject** link = &s_first;
        while (*link != this)
            link = &(*link)->m_next;
        *link = m_next;
    }
    LiveObject(const LiveObject&) = delete;
    LiveObject& operator=(const LiveObject&) = delete;

    /// Calls `call(Owner&)` for each; the call must neither make nor destroy an object of the type.
    template <typename Call>
    static void forEach(const Call& call)
    {
        for (LiveObject* object = s_first; object != nullptr; object = object->m_next)
            call(object->m_owner);
    }

private:
    Owner& m_owner;
    LiveObject* m_next;
    static inline LiveObject* s_first = nullptr;
};

} // namespace velmora::sdk::integration::intern
