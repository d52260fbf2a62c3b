#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace velmora::sdk::integration::intern {

/// Borrowed listeners, notified in the order they were added. A listener may add and remove
/// listeners, itself included, while it is notified: a removed one is not called any more, an added
/// one is called from the next notification on. Notifying allocates nothing. One thread only.
template <typename Listener>
class ListenerList {
public:
    ListenerList() = default;
    ListenerList(const ListenerList&) = delete;
    ListenerList& operator=(const ListenerList&) = delete;

    /// Adding a listener twice has no further effect; null is ignored.
    void add(Listener* listener)
    {
        if (listener != nullptr && !contains(listener))
            m_listeners.push_back(listener);
    }

    void remove(const Listener* listener)
    {
        const auto found = std::find(m_listeners.begin(), m_listeners.end(), listener);
        if (listener == nullptr || found == m_listeners.end())
            return;
        if (m_notifying == 0) {
            m_listeners.erase(found);
            return;
        }
        // The notification under way counts on the positions; it closes the gap at its end.
        *found = nullptr;
        m_hasGaps = true;
    }

    bool contains(const Listener* listener) const
    {
        return std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end();
    }

    /// Calls `call(Listener&)` for each. An exception ends the notification and passes through.
    template <typename Call>
    void notify(const Call& call)
    {
        const Notification notification(*this);
        const std::size_t count = m_listeners.size();
        for (std::size_t i = 0; i < count; ++i)
            if (Listener* const listener = m_listeners[i])
                call(*listener);
    }

private:
    class Notification {
    public:
        explicit Notification(ListenerList& list) : m_list(list) { ++m_list.m_notifying; }
        ~Notification()
        {
            if (--m_list.m_notifying == 0 && m_list.m_hasGaps)
                m_list.closeGaps();
        }
        Notification(const Notification&) = delete;
        Notification& operator=(const Notification&) = delete;

    private:
        ListenerList& m_list;
    };

    void closeGaps()
    {
        m_listeners.erase(std::remove(m_listeners.begin(), m_listeners.end(), nullptr), m_listeners.end());
        m_hasGaps = false;
    }

    std::vector<Listener*> m_listeners;
    int m_notifying = 0;
    bool m_hasGaps = false;
};

} // namespace velmora::sdk::integration::intern
