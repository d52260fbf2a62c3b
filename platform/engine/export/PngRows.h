#pragma once

#include "engine/export/RowSink.h"

#include <cstddef>
#include <memory>

namespace velmora::engine {

class TargetFile;

/// Writes the rows of a picture as a PNG file of 8-bit RGB, or RGB and alpha.
class PngRows final : public RowSink {
public:
    /// `dotsPerInch` is noted in the file; 0: nothing is. Throws ExportFailure.
    PngRows(TargetFile& file, int width, int height, double dotsPerInch, bool hasAlpha = false);
    ~PngRows();
    PngRows(const PngRows&) = delete;
    PngRows& operator=(const PngRows&) = delete;

    void takeRow(int row, const unsigned char* pixels) override;
    /// After the last row. Throws ExportFailure.
    void finish();

private:
    struct Impl;
    void check(bool succeeded) const;

    std::unique_ptr<Impl> m_impl;
};

} // namespace velmora::engine
