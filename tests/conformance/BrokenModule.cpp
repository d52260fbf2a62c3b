// Contents that break one promise each, which the build chooses. They read files that begin with "broken".

#include "tests/platform/page/StripedContent.h"

#include <GL/gl.h>

namespace {

using namespace velmora;

enum Fault {
    GoesOn,         // after it was told to stop
    LeavesState,    // and an object
    IgnoresItsPlace // in the target, so that tiles do not fit together
};

constexpr Fault fault = VELMORA_TEST_FAULT;

class Deaf final : public content::Checkpoint {
public:
    explicit Deaf(content::Checkpoint& asked) : m_asked(asked) {}
    bool goOn(double fraction) override
    {
        m_asked.goOn(fraction);
        return true;
    }

private:
    content::Checkpoint& m_asked;
};

class BrokenContent final : public test::StripedContent {
public:
    bool draw(const content::Drawing& drawing, content::Checkpoint& checkpoint) override
    {
        Deaf deaf(checkpoint);
        content::Drawing place = drawing;
        if (fault == IgnoresItsPlace) {
            place.frameX = place.frameY = 0;
            place.frameWidth = drawing.targetWidth;
            place.frameHeight = drawing.targetHeight;
        }
        const bool isWhole = StripedContent::draw(place, fault == GoesOn ? deaf : checkpoint);
        if (fault == LeavesState)
            reinterpret_cast<decltype(&::glEnable)>(drawing.findFunction("glEnable"))(GL_CULL_FACE);
        return isWhole;
    }
};

class BrokenReader final : public content::Reader {
public:
    bool recognises(const std::string&, const std::string& beginning) const override
    {
        return beginning.rfind("broken", 0) == 0;
    }
    std::shared_ptr<content::Content> read(const std::string&, content::Checkpoint&) override
    {
        return std::make_shared<BrokenContent>();
    }
};

} // namespace

extern "C" __attribute__((visibility("default"))) const velmora::content::Module velmoraContentModule = {
    velmora::content::InterfaceVersion,
    []() -> std::unique_ptr<content::Reader> { return std::make_unique<BrokenReader>(); }};
