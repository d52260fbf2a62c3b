#pragma once

/// Marks what a library of the platform offers to others; everything else in it is hidden.
#define VELMORA_PLATFORM_EXPORT __attribute__((visibility("default")))
