// A module with a reader of files that begin with "stripes" and a number of them.

#include "tests/platform/page/StripedContent.h"

#include <fstream>
#include <stdexcept>

namespace {

using namespace velmora;

class StripesReader final : public content::Reader {
public:
    bool recognises(const std::string& fileName, const std::string& beginning) const override
    {
        return fileName.find(".stripes") != std::string::npos && beginning.rfind("stripes ", 0) == 0;
    }

    std::shared_ptr<content::Content> read(const std::string& fileName, content::Checkpoint& checkpoint) override
    {
        std::ifstream file(fileName);
        std::string word;
        auto content = std::make_shared<test::StripedContent>();
        if (!(file >> word >> content->stripes) || content->stripes < 1)
            throw std::runtime_error(fileName + " tells no number of stripes. Write one after the first word.");
        for (int i = 0; i < content->stripes; ++i)
            if (!checkpoint.goOn(static_cast<double>(i) / content->stripes))
                throw content::Interrupted();
        return content;
    }
};

std::unique_ptr<content::Reader> makeReader()
{
    return std::make_unique<StripesReader>();
}

} // namespace

#ifndef VELMORA_TEST_MODULE_VERSION
#define VELMORA_TEST_MODULE_VERSION velmora::content::InterfaceVersion
#endif

extern "C" __attribute__((visibility("default")))
const velmora::content::Module velmoraContentModule = {VELMORA_TEST_MODULE_VERSION, makeReader};
