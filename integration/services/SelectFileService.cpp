#include "integration/services/SelectFileService.h"

#include "integration/services/TextArgument.h"
#include "ui_qt/LaunchFileDialog.h"

#include <vector>

namespace velmora::sdk::integration::services {

SelectFileService::SelectFileService() = default;
SelectFileService::~SelectFileService() = default;

bool SelectFileService::displayFileDialog(SelectFileOption_e option, const char* text1, const char* text2,
                                          const char* text3, std::string& result)
{
    const std::string title = requiredText(text1);
    const bool multiple = option == SelectFileOption_ReadMultipleFiles;
    const std::vector<std::string> filters(1, requiredText(text3));
    std::vector<std::string> offered;
    if (text2 && *text2)
        offered.push_back(text2);

    std::vector<std::string> selected;
    int filterIndex = 0;
    const bool chosen = ui::LaunchFileDialog(selected, filterIndex, title, filters, offered, multiple, false, 0);
    if (chosen)
        result = selected.front();
    return chosen;
}

} // namespace velmora::sdk::integration::services
