#include "integration/printing/PaperLength.h"

namespace velmora::sdk::integration {

qint64 wholeMillimetersFromInches(double inches)
{
    return static_cast<qint64>(inches * 2.54 * 10.0 + 0.499);
}

double inchesFromWholeMillimeters(qint64 millimeters)
{
    return static_cast<double>(millimeters) / 25.4;
}

} // namespace velmora::sdk::integration
