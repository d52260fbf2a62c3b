#pragma once

#include "integration/Export.h"
#include "integrationmanager/MessageBoxServiceAbstract.h"

#include <memory>

class QWidget;

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Shows the engine's messages in the toolkit's own message boxes. GUI thread only.
///
/// After a box the widget that has the focus, or had it before where the window system has not given it
/// back yet, does not hear of mouse presses that were already waiting when the box closed: somebody who
/// clicked twice to get rid of a box did not mean the second click for what lay behind it.
class VELMORA_INTEGRATION_EXPORT MessageBoxService : public MessageBoxServiceAbstract {
public:
    MessageBoxService();
    /// May run after the application object is gone.
    ~MessageBoxService() override;

    /// Shows the UTF-8 text in a modal box over the application's main window and returns a
    /// MessageBoxReply_e value; MessageBoxReply_Error, and no box, for an unknown type. Runs a
    /// nested event loop. The box's parent (the first main window, else the first window) must not be
    /// destroyed before this function has returned: the box is on the stack, and its parent would delete
    /// it there, which ends the program. A host that wants to be rid of the window hides it meanwhile.
    unsigned displayMessageBox(const char* message, MessageBoxType_e type) override;

private:
    class SwallowerSlot;

    static QWidget* chooseParent();

    std::unique_ptr<SwallowerSlot> m_slot;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
