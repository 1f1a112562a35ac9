// The member table of strings.
#include <cstring>
#include <string_view>
#include <utility>

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
  StringForm form;  // null for a member with parameters
  Value (*make)(const String& name, const String& text);
};

/// A function that holds nothing but the text.
template <typename Function, typename Closure>
Value makeMember(const String& name, Closure closure) {
  const auto member = makeRef<Function>(name, std::move(closure));
  member->setHoldsNoFunctions();
  return member;
}

template <StringForm form>
Value makeForm(const String& name, const String& text) {
  return makeMember<Function0>(name, [text] { return Value(form(text)); });
}

template <StringForm form>
constexpr Member formMember(std::string_view name) {
  return {name, form, makeForm<form>};
}

/// Any value may be looked for: its description is.
template <bool (*test)(const String& text, const String& part)>
Value makeTest(const String& name, const String& text) {
  return makeMember<Function1>(name, [text](const Value& part) { return Value(test(text, part.description())); });
}

Value makeEquals(const String& name, const String&) {
  return equalsMember(name);
}

constexpr Member members[] = {
    {"contains", nullptr, makeTest<unicode::contains>},
    {"equals", nullptr, makeEquals},
    formMember<escaped>("escaped"),
    {"hasPrefix", nullptr, makeTest<unicode::hasPrefix>},
    {"hasSuffix", nullptr, makeTest<unicode::hasSuffix>},
    formMember<lowerCamelCased>("lowerCamelCased"),
    formMember<unicode::lowercased>("lowercased"),
    formMember<snakeCased>("snakeCased"),
    formMember<trimmingWhitespace>("trimmingWhitespace"),
    formMember<upperCamelCased>("upperCamelCased"),
    formMember<unicode::uppercased>("uppercased"),
};

/// Null if there is none.
const Member* findMember(std::string_view name) noexcept {
  // One after the other: most differ by their length already, and so quicker than a search that has to compare.
  for (const Member& member : members) {
    if (member.name.size() != name.size()) continue;
    if (std::memcmp(member.name.data(), name.data(), name.size()) == 0) return &member;
  }
  return nullptr;
}

}  // namespace

std::optional<Value> stringMember(const String& text, const String& name) {
  const Member* member = findMember(name);
  if (!member) return std::nullopt;
  return member->make(name, text);
}

StringForm stringForm(const String& name) noexcept {
  const Member* member = findMember(name);
  return member ? member->form : nullptr;
}

}  // namespace velto
