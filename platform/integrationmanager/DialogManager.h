#pragma once

#include "integrationmanager/OpenDialog.h"
#include "interfaces/DialogManagerInterface.h"

namespace velmora::sdk::integration::intern {

/// Knows the dialogs that the service callbacks have open.
class DialogManager : public DialogManagerInterface {
public:
    int openDialogCount() const override { return OpenDialog::count(); }
};

} // namespace velmora::sdk::integration::intern
