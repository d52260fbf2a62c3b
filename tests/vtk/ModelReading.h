#pragma once

#include "engine/VelContent.h"

#include <string>
#include <vector>

namespace velmora::test::model {

/// Notes how often it is asked, and says to stop the n-th time.
class CountedCheckpoint final : public content::Checkpoint {
public:
    explicit CountedCheckpoint(int stopAt = 0) : m_stopAt(stopAt) {}
    bool goOn(double fraction) override
    {
        fractions.push_back(fraction);
        return static_cast<int>(fractions.size()) != m_stopAt;
    }
    int asked() const { return static_cast<int>(fractions.size()); }
    std::vector<double> fractions;

private:
    int m_stopAt;
};

/// The reader of the module, without the engine.
content::Reader& reader();
/// Reads a file with it.
std::shared_ptr<content::Content> read(const std::string& fileName);
/// What it says against the file; empty when it takes it.
std::string refusalOf(const std::string& fileName);

} // namespace velmora::test::model
