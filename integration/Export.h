#pragma once

/// Marks the classes and functions of this library's boundary; everything else in it is hidden.
#define VELMORA_INTEGRATION_EXPORT __attribute__((visibility("default")))
