#pragma once

namespace velmora::engine {

/// Who takes the rows of a picture, from the top, one after the other.
class RowSink {
public:
    /// `rgb` holds three bytes a pixel and is valid during the call. Throws ExportFailure or
    /// ExportInterrupted to end the picture.
    virtual void takeRow(int row, const unsigned char* rgb) = 0;

protected:
    ~RowSink() = default;
};

} // namespace velmora::engine
