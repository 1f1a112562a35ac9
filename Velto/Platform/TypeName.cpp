// The names of C++ types as people write them.
#include "Velto/Platform/TypeName.h"

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace velto {

namespace {

std::string demangled(const char* name) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> text(abi::__cxa_demangle(name, nullptr, nullptr, &status), std::free);
  constexpr int lackOfMemory = -1;
  if (status == lackOfMemory) throw std::bad_alloc();
  return text ? text.get() : name;
}

/// Drops everything in front of "::", at each level of brackets by itself: "a::Pair<b::Point, (anonymous)::X>" becomes
/// "Pair<Point, X>".
std::string withoutQualifiers(std::string_view name) {
  std::string result;
  std::vector<std::size_t> starts = {0};  // where the current name begins in `result`, for each open bracket
  for (std::size_t index = 0; index < name.size(); ++index) {
    const char character = name[index];
    if (name.substr(index).starts_with("::")) {
      result.resize(starts.back());
      ++index;
      continue;
    }
    if (std::string_view(">)}").find(character) != std::string_view::npos && starts.size() > 1) starts.pop_back();
    result += character;
    if (std::string_view("<({").find(character) != std::string_view::npos) starts.push_back(result.size());
    if (character == ' ' && starts.size() > 1) starts.back() = result.size();
  }
  return result;
}

}  // namespace

String printedTypeName(const std::type_info& type) {
  return withoutQualifiers(demangled(type.name()));
}

String unqualifiedTypeName(const std::type_info& type) {
  const String name = printedTypeName(type);
  return name.view().substr(0, name.view().find('<'));
}

}  // namespace velto
