#pragma once

/// Marks a type whose type information is shared between the engine's libraries, this library and
/// the host. Every library is built with hidden visibility; what crosses a boundary says so here.
#define VELMORA_INTERFACE __attribute__((visibility("default")))
