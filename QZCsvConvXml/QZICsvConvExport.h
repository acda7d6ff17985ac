#pragma once

// Marks what the shared library exports. The library is built with hidden
// symbols, so everything not marked stays internal to it.
#define QZC_EXPORT __attribute__((visibility("default")))
