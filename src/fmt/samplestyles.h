// The sample configurations of examples/styles, as far as they choose a layout.
#ifndef QORN_FMT_SAMPLESTYLES_H
#define QORN_FMT_SAMPLESTYLES_H

#include <span>
#include <string_view>

struct SampleStyle {
  std::string_view name;
  std::string_view configuration;
};

/** Sorted by name. */
[[nodiscard]] std::span<const SampleStyle> sampleStyles();

#endif
