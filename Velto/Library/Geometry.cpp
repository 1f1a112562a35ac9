// Points, sizes and rectangles.
#include "Velto/Library/Geometry.h"

#include <cmath>

#include "Velto/Value/HostObject.h"
#include "Velto/Value/NumberText.h"

namespace velto {

namespace {

String braced(const String& first, const String& second) {
  return String::concatenation({"{", first, ", ", second, "}"});
}

CGPoint centerOf(const CGRect& rect) {
  return {rect.origin.x + rect.size.width * 0.5, rect.origin.y + rect.size.height * 0.5};
}

/// A rectangle has members besides its fields.
class RectObject final : public HostObject<CGRect> {
 public:
  RectObject(const CGRect& rect, const Properties<CGRect>* properties)
      : HostObject(std::make_shared<const CGRect>(rect), properties) {}

  std::optional<Value> get(const String& name) const override {
    if (std::optional<Value> field = getFromMirror(name)) return field;
    const std::string_view member = name;
    if (member == "center") return asObject(centerOf(record()));
    if (member == "width") return Value(std::abs(record().size.width));
    if (member == "height") return Value(std::abs(record().size.height));
    return std::nullopt;
  }
  bool mayHoldFunctions() const noexcept override { return false; }
};

}  // namespace

String CGPoint::description() const {
  return braced(hostDescription(x), hostDescription(y));
}

String CGSize::description() const {
  return braced(hostDescription(width), hostDescription(height));
}

String CGRect::description() const {
  return braced(origin.description(), size.description());
}

Ref<const Object> asObject(const CGPoint& point) {
  static const Properties<CGPoint> fields = {{"x", &CGPoint::x}, {"y", &CGPoint::y}};
  return makeRef<CopiedRecord<CGPoint>>(point, &fields);
}

Ref<const Object> asObject(const CGSize& size) {
  static const Properties<CGSize> fields = {{"width", &CGSize::width}, {"height", &CGSize::height}};
  return makeRef<CopiedRecord<CGSize>>(size, &fields);
}

Ref<const Object> asObject(const CGRect& rect) {
  static const Properties<CGRect> fields = {{"origin", &CGRect::origin}, {"size", &CGRect::size}};
  return makeRef<RectObject>(rect, &fields);
}

}  // namespace velto
