#pragma once

#include "Report.h"
#include "Target.h"

#include "engine/VelContent.h"

#include <map>

namespace conformance {

struct Limits {
    double longestPortion = 100; ///< milliseconds between two checkpoints, also on a busy machine
    double coarse = 100;         ///< milliseconds for a coarse picture
    double value = 50;           ///< milliseconds for the value at a place
};

/// Stands before a content, so that it meets the real contexts of the engine, and looks whether it keeps its promises
/// there: when prepare() was called, the next full drawing is preceded by all checks in its context.
class ContentChecks final : public velmora::content::Content {
public:
    ContentChecks(std::shared_ptr<Content> checked, const Limits& limits, Report& report);

    /// The next full drawing is in a context of that name.
    void prepare(const std::string& where) { m_where = where; }
    /// Whether the drawing has come.
    bool isDone() const { return m_where.empty(); }
    /// Why the content did not draw in the context of that name, or "".
    std::string refusal() const { return m_refusal; }

    bool draw(const velmora::content::Drawing& drawing, velmora::content::Checkpoint& checkpoint) override;
    bool drawsCoarsely() const override { return m_checked->drawsCoarsely(); }
    void leaveContext(unsigned long context, bool isCurrent) override;
    std::string description() const override { return m_checked->description(); }

private:
    struct Room;

    void check(const velmora::content::Drawing& drawing);
    bool isDrawn(const Room& room);
    void checkCoarse(const Room& room);
    void checkDrawing(const Room& room);
    void checkInterruptions(const Room& room);
    void checkParts(const Room& room);
    void checkView(const Room& room);
    void checkValues();
    void checkKept(const Room& room);
    void checkElsewhere();
    Pixels picture(const Room& room);
    void add(const char* promise, bool isKept, const std::string& seen)
    {
        m_report.add(m_where, promise, isKept, seen);
    }

    std::shared_ptr<Content> m_checked;
    Limits m_limits;
    Report& m_report;
    std::string m_where;
    std::string m_refusal;
    long m_questions = 0; ///< of the last whole drawing
    Pixels m_picture;     ///< in this context
    Pixels m_first;       ///< in the first context
};

} // namespace conformance
