#pragma once

#include "integration/Export.h"

class QPrinter;

namespace velmora {
namespace sdk {
namespace integration {

// Paper size and orientation between a printer and the engine's page settings. "Kernel" is the
// engine. GUI thread only, after the engine has been started. Exceptions of the toolbox pass
// through; a setting that the engine refuses is left as it is, without a message.

/// Gives the printer the engine's paper orientation and paper size, and the whole sheet to print
/// on: the engine keeps hard-clip margins of its own.
///
/// The size becomes the toolkit's paper whose sides differ from the engine's by at most 1 mm; a
/// paper that the toolkit has no name for becomes a custom one in whole millimetres. A size of JIS's
/// B series becomes the toolkit's paper of that name, whose page then has the size of ISO's sheet: a
/// paper of 182 x 257 mm is printed as B5 on a page of 176 x 250 mm. When the engine's current paper
/// cannot be read, its first one ("Letter") is taken.
VELMORA_INTEGRATION_EXPORT void UpdatePrinterFromKernel(QPrinter& printer);

/// Gives the engine the printer's orientation and paper size. Fits the frames to the paper and the
/// view to the whole paper when the engine took a change, and always when the sheet is one of the
/// engine's own papers. A printer's paper that is none of them becomes the engine's "Custom2"; one
/// of the B series counts with its size in JIS, whatever the size of the toolkit's page.
VELMORA_INTEGRATION_EXPORT void UpdateKernelFromPrinter(QPrinter& printer);

} // namespace integration
} // namespace sdk
} // namespace velmora
