#pragma once

namespace viewer {

/// The paper that is usual where the person is, as the locale's LC_PAPER says: Letter or A4, by its place in
/// EngineSession::paperNames().
int paperOfLocale();

} // namespace viewer
