// Which types of a host become objects by themselves.
#pragma once

#include <boost/describe/members.hpp>
#include <concepts>
#include <memory>
#include <type_traits>

#include "Velto/Forward.h"
#include "Velto/Platform/Ref.h"

namespace [[gnu::visibility("default")]] velto {

/// A record whose own members are described by `BOOST_DESCRIBE_STRUCT` or `BOOST_DESCRIBE_CLASS`.
template <typename T>
concept Described = boost::describe::has_describe_members<T>::value && !std::is_union_v<T>;

// Described records become objects wherever a value or a host value is taken; HostObject.h tells how.
template <Described T>
Ref<const Object> asObject(const T& record);
/// Null is no object.
template <Described T>
Ref<const Object> asObject(const std::shared_ptr<T>& record);

/// A described type, or one that has an `asObject` of its own, found by argument-dependent lookup.
template <typename T>
concept HasObjectForm = requires(const T& host) {
  { asObject(host) } -> std::convertible_to<Ref<const Object>>;
};

}  // namespace velto
