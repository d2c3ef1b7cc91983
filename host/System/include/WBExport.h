#pragma once

/// Marks what a shared library of this project shows to others: exported classes (with their type
/// information, so that casts and catches are one across libraries) and functions.
#define WB_EXPORT __attribute__((visibility("default")))
