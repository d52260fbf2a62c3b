#include "integrationmanager/StopButtonList.h"

#include "interfaces/StopButtonInterface.h"

#include <algorithm>

namespace velmora::sdk::integration::intern {

void StopButtonList::add(const boost::shared_ptr<const StopButtonInterface>& button)
{
    if (button && std::find(m_buttons.begin(), m_buttons.end(), button) == m_buttons.end())
        m_buttons.push_back(button);
}

void StopButtonList::remove(const boost::shared_ptr<const StopButtonInterface>& button)
{
    m_buttons.erase(std::remove(m_buttons.begin(), m_buttons.end(), button), m_buttons.end());
}

bool StopButtonList::isInForce(const void* object) const
{
    const StopButtonInterface* const button = inForce();
    return button != nullptr && button->isEqual(object);
}

const StopButtonInterface* StopButtonList::inForce() const
{
    const auto last =
        std::find_if(m_buttons.rbegin(), m_buttons.rend(), [](const auto& button) { return button->isActive(); });
    return last == m_buttons.rend() ? nullptr : last->get();
}

} // namespace velmora::sdk::integration::intern
