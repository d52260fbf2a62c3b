#pragma once

#include "engine/VelContent.h"

#include <functional>
#include <vector>

namespace velmora::test {

/// Upright stripes of one colour that fill the frame from the left, one portion of work each; every other one is
/// left out. It notes what it is asked.
class StripedContent : public content::Content {
public:
    bool draw(const content::Drawing& drawing, content::Checkpoint& checkpoint) override;
    bool drawsCoarsely() const override { return isCoarse; }
    void leaveContext(unsigned long context, bool isCurrent) override { left.push_back({context, isCurrent}); }
    std::string description() const override { return "stripes"; }
    bool extent(content::Extent& found) const override;
    void zoom(double factor, double x, double y) override;
    void translate(double dx, double dy) override;
    std::string viewState() const override { return "stripes " + std::to_string(zoomed); }
    bool setViewState(const std::string& state) override;

    struct Left {
        unsigned long context;
        bool wasCurrent;
    };

    int stripes = 40;
    bool isCoarse = true;
    double zoomed = 1;
    double moved = 0;
    std::function<void()> whileDrawing = [] {}; ///< before each stripe
    std::function<void(const content::Drawing&)> whenStopped = [](const content::Drawing&) {};
    std::vector<content::Drawing> drawings;
    std::vector<Left> left;
    int finished = 0; ///< drawings
};

} // namespace velmora::test
