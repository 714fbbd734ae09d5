#pragma once

// Marks what the shared library offers; everything else stays hidden.
#define ALDLIB_EXPORT __attribute__((visibility("default")))
