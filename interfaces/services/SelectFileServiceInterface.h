#pragma once

#include "interfaces/EngineEnumerations.h"
#include "interfaces/Visibility.h"

#include <string>

namespace velmora {
namespace sdk {
namespace integration {
namespace services {

/// Asks the person for a file name. GUI thread only.
class VELMORA_INTERFACE SelectFileServiceInterface {
public:
    /// True when a file was chosen; its name is then in `result`, which otherwise stays as it was.
    /// `text1` is the dialog's title, `text2` the file offered at first (may be null or empty) and
    /// `text3` the filter, all UTF-8.
    virtual bool displayFileDialog(SelectFileOption_e option, const char* text1, const char* text2, const char* text3,
                                   std::string& result) = 0;
    virtual ~SelectFileServiceInterface() = default;
};

} // namespace services
} // namespace integration
} // namespace sdk
} // namespace velmora
