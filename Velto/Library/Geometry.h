// Points, sizes and rectangles.
#pragma once

#include "Velto/Value/HostValue.h"

namespace [[gnu::visibility("default")]] velto {

struct CGPoint {
  CGFloat x = 0;
  CGFloat y = 0;
};

struct CGSize {
  CGFloat width = 0;
  CGFloat height = 0;
};

struct CGRect {
  CGPoint origin;
  CGSize size;
};

// The records as objects, under the names of their fields; a rectangle has `center`, and `width` and `height` without
// their sign, too.
Ref<const Object> asObject(const CGPoint& point);
Ref<const Object> asObject(const CGSize& size);
Ref<const Object> asObject(const CGRect& rect);

}  // namespace velto
