#pragma once

namespace velmora::engine {

/// Who takes the rows of a picture, from the top, one after the other.
class RowSink {
public:
    /// `pixels` holds three bytes a pixel, or four with alpha, and is valid during the call. Throws ExportFailure or
    /// ExportInterrupted to end the picture.
    virtual void takeRow(int row, const unsigned char* pixels) = 0;

    /// Whether there is room for a row. May wait for it, but only a moment; the producer of rows asks until there
    /// is. Throws like takeRow().
    virtual bool hasRoom() { return true; }

protected:
    ~RowSink() = default;
};

} // namespace velmora::engine
