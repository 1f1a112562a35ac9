// Points, sizes and rectangles.
#pragma once

#include "Velto/Value/HostValue.h"

namespace [[gnu::visibility("default")]] velto {

struct CGPoint;
struct CGSize;
struct CGRect;

// The records as objects, under the names of their fields; a rectangle has `center`, and `width` and `height` without
// their sign, too. As values they are equal to nothing, themselves included.
[[gnu::visibility("default")]] Ref<const Object> asObject(const CGPoint& point);
[[gnu::visibility("default")]] Ref<const Object> asObject(const CGSize& size);
[[gnu::visibility("default")]] Ref<const Object> asObject(const CGRect& rect);

struct CGPoint {
  CGFloat x = 0;
  CGFloat y = 0;

  /// "{1.0, 2.0}"
  String description() const;

  friend bool operator==(const CGPoint&, const CGPoint&) noexcept = default;
};

struct CGSize {
  CGFloat width = 0;
  CGFloat height = 0;

  /// "{1.0, 2.0}"
  String description() const;

  friend bool operator==(const CGSize&, const CGSize&) noexcept = default;
};

struct CGRect {
  CGPoint origin;
  CGSize size;

  /// "{{0.0, 0.0}, {10.0, 20.5}}"
  String description() const;

  friend bool operator==(const CGRect&, const CGRect&) noexcept = default;
};

}  // namespace velto
