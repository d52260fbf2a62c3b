#pragma once

namespace velmora::engine {

/// A rectangle on the paper: inches from its lower left corner.
struct InchRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

/// The paper as it lies: a landscape sheet is wider than high.
struct Paper {
    double width = 0;
    double height = 0;
    InchRect printable; ///< inside the hard-clip margins, which no printer prints on
};

/// The paper that the style tree names now, in the orientation that it names.
Paper currentPaper();

} // namespace velmora::engine
