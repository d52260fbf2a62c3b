#pragma once

#include "engine/text/Owners.h"

#include <string>

namespace velmora::engine {

/// Tells Pango the language of each part of a well-formed text, as the script lets guess. Where several languages
/// share a script it would otherwise ask the environment.
void addLanguages(PangoAttrList* attributes, const std::string& text);

} // namespace velmora::engine
