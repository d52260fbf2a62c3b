#pragma once

#include "engine/VelContent.h"

namespace velmora::model {

/// Reads VTK's poly data (.vtp) and unstructured grids (.vtu), STL and PLY files, by the endings of their names.
class ModelReader final : public content::Reader {
public:
    bool recognises(const std::string& fileName, const std::string& beginning) const override;
    std::shared_ptr<content::Content> read(const std::string& fileName, content::Checkpoint& checkpoint) override;
};

} // namespace velmora::model
