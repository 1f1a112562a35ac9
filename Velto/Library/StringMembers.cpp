// The member table of strings.
#include <algorithm>
#include <string_view>

#include "Velto/Library/EqualsMember.h"
#include "Velto/Library/StringForms.h"
#include "Velto/Library/WordCase.h"
#include "Velto/Platform/Unicode.h"
#include "Velto/Value/NativeFunctions.h"
#include "Velto/Value/StringMember.h"

namespace velto {

namespace {

struct Member {
  std::string_view name;
  Value (*make)(const String& name, const String& text);
};

template <String (*form)(const String& text)>
Value makeForm(const String& name, const String& text) {
  return makeRef<Function0>(name, [text] { return Value(form(text)); });
}

/// Any value may be looked for: its description is.
template <bool (*test)(const String& text, const String& part)>
Value makeTest(const String& name, const String& text) {
  return makeRef<Function1>(name, [text](const Value& part) { return Value(test(text, part.description())); });
}

Value makeEquals(const String& name, const String&) {
  return equalsMember(name);
}

constexpr Member members[] = {
    {"contains", makeTest<unicode::contains>},
    {"equals", makeEquals},
    {"escaped", makeForm<escaped>},
    {"hasPrefix", makeTest<unicode::hasPrefix>},
    {"hasSuffix", makeTest<unicode::hasSuffix>},
    {"lowerCamelCased", makeForm<lowerCamelCased>},
    {"lowercased", makeForm<unicode::lowercased>},
    {"snakeCased", makeForm<snakeCased>},
    {"trimmingWhitespace", makeForm<trimmingWhitespace>},
    {"upperCamelCased", makeForm<upperCamelCased>},
    {"uppercased", makeForm<unicode::uppercased>},
};
static_assert(std::ranges::is_sorted(members, {}, &Member::name));

}  // namespace

std::optional<Value> stringMember(const String& text, const String& name) {
  const Member* member = std::ranges::lower_bound(members, name.view(), {}, &Member::name);
  if (member == std::end(members) || member->name != name.view()) return std::nullopt;
  return member->make(name, text);
}

}  // namespace velto
