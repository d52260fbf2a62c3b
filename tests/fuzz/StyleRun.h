#pragma once

#include "tests/fuzz/StyleModel.h"
#include "tests/fuzz/StyleScript.h"
#include "toolbox/ArgList.h"

#include <vector>

namespace velmora::engine::fuzz {

/// Carries a script out on the engine's style tree through the toolbox, and on the model beside it;
/// whatever differs is a failure of `require`.
class StyleRun {
public:
    /// Gives every setting its default.
    StyleRun();
    ~StyleRun();
    StyleRun(const StyleRun&) = delete;
    StyleRun& operator=(const StyleRun&) = delete;

    void carryOut(const StyleStep& step);
    /// The whole tree against the whole model.
    void compare() const;

private:
    /// What steps before a read or write ask of it.
    struct Extras {
        int offset1 = -1;
        int offset2 = -1;
        long set = 0;
        int assignment = 255;
        std::vector<long> moreIds;
        std::vector<StyleStep> rawArguments;
    };

    bool addExtra(const StyleStep& step);
    bool steer(const StyleStep& step);
    void call(const StyleStep& step);
    void read(const StyleStep& step, const StyleCall& call);
    template <typename T>
    void readExact(const StyleCall& call, T before);
    template <typename T>
    void readIntoList(const StyleCall& call, T before);
    void write(const StyleStep& step, const StyleCall& call);
    int writeValue(const StyleStep& step, const StyleCall& call);
    int appendValue(const StyleStep& step, const StyleCall& call);
    int writeRawArguments();

    StyleCall setUp(const StyleStep& step);
    void appendRawArguments();

    StyleModel m_model;
    Extras m_extras;
    toolbox::ArgList m_arguments;
    long m_reader = 0; ///< where raw arguments point to
    double m_realReader = 0;
};

} // namespace velmora::engine::fuzz
