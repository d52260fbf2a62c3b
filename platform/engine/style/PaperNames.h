#pragma once

namespace velmora::engine::style {

/// The engine's papers, as the paths of the settings call them, in the order of their numbers at
/// "Paper/PaperSize".
constexpr const char* PaperNames[] = {"Letter", "Double", "A4", "A3", "Custom1", "Custom2"};

} // namespace velmora::engine::style
