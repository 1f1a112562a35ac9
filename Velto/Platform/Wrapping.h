// A mark for functions whose unsigned numbers are meant to wrap.
#pragma once

/// Wherever else one wraps, a size has most likely gone below zero: a sanitizer of Clang's reports it.
#if defined(__clang__)
#define VELTO_WRAPS [[clang::no_sanitize("unsigned-integer-overflow", "unsigned-shift-base")]]
#else
#define VELTO_WRAPS
#endif
