#pragma once

namespace velmora::test {

/// A buffer object, bound to where pixels are read into, in the context that is current.
unsigned bindNewPackBuffer();
/// Which is bound there.
unsigned boundPackBuffer();

} // namespace velmora::test
