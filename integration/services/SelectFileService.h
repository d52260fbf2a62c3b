#pragma once

#include "integration/Export.h"
#include "integrationmanager/SelectFileServiceAbstract.h"

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Asks the person for a file name with the toolkit's file dialog. Holds nothing of its own. GUI
/// thread only.
class VELMORA_INTEGRATION_EXPORT SelectFileService : public SelectFileServiceAbstract {
public:
    SelectFileService();
    ~SelectFileService() override;

    /// Modal. True when the person chose a file: `result` then holds its name, the first one of
    /// several. Otherwise, also when a window goes and takes the open dialog along, `result` stays as it
    /// was. With the option for several files all of
    /// them must exist; with every other a new name can be typed as well, and a file that exists is
    /// taken without a question, even to write. `text1` (the title) and `text3` (the filter)
    /// must not be null, or std::logic_error is thrown; `text2` (the file offered) may be null or
    /// empty. All are UTF-8.
    bool displayFileDialog(SelectFileOption_e option, const char* text1, const char* text2, const char* text3,
                           std::string& result) override;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
