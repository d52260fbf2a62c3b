#pragma once

#include <boost/shared_ptr.hpp>
#include <vector>

namespace velmora::sdk::integration {

class StopButtonInterface;

namespace intern {

/// The registered stop buttons. Of those that are active, the one registered last is in force: it
/// alone can interrupt. That is how an active button without a widget suspends interruption, the
/// other buttons included, for as long as it is registered.
class StopButtonList {
public:
    /// Adding a button twice has no further effect; null is ignored.
    void add(const boost::shared_ptr<const StopButtonInterface>& button);
    void remove(const boost::shared_ptr<const StopButtonInterface>& button);

    bool isAnyInForce() const { return inForce() != nullptr; }
    /// Whether `object` is the widget of the button in force.
    bool isInForce(const void* object) const;

private:
    const StopButtonInterface* inForce() const;

    std::vector<boost::shared_ptr<const StopButtonInterface>> m_buttons;
};

} // namespace intern
} // namespace velmora::sdk::integration
