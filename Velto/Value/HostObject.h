// Records of the host as objects, without a class of their own.
#pragma once

#include <boost/describe.hpp>
#include <boost/mp11/algorithm.hpp>
#include <functional>
#include <memory>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "Velto/Value/HostValue.h"

namespace [[gnu::visibility("default")]] velto {

/// A name of a property and how to read it from a record: a pointer to a member, or a function.
template <typename T>
struct Property {
  String name;
  std::function<HostValue(const T&)> read;

  template <typename Reader>
  Property(String name, Reader reader)
      : name(std::move(name)), read([reader](const T& record) { return HostValue(std::invoke(reader, record)); }) {}
};

template <typename T>
using Properties = std::vector<Property<T>>;

/// The members that a record's own type declares; those of its bases are not seen.
template <Described T>
const Properties<T>& describedProperties() {
  static const Properties<T> properties = [] {
    Properties<T> result;
    using Members = boost::describe::describe_members<T, boost::describe::mod_any_access>;
    boost::mp11::mp_for_each<Members>([&](auto member) { result.emplace_back(String(member.name), member.pointer); });
    return result;
  }();
  return properties;
}

template <typename T>
concept DescribesItself = requires(const T& record) {
  { record.description() } -> std::convertible_to<String>;
};

/// Stands while a record is being printed. One that comes by itself again inside, or stands too deep within others for
/// the stack, is printed without its properties.
class RecordPrinting {
 public:
  RecordPrinting(const void* record, const std::type_info& type) noexcept;
  RecordPrinting(const RecordPrinting&) = delete;
  RecordPrinting& operator=(const RecordPrinting&) = delete;
  ~RecordPrinting();

  bool mayGoOn() const noexcept { return mayGoOn_; }

 private:
  bool isInProgress() const noexcept;

  const void* const record_;
  const std::type_info& type_;
  const RecordPrinting* const outer_;
  const bool mayGoOn_;
};

/// An object over a record of type `T`, which it shares with the host. A record that is shared under the name of a base
/// is one of the base in all that it shows.
template <typename T>
class HostObject : public Object {
 public:
  HostObject(std::shared_ptr<const T> record, const Properties<T>* properties) noexcept
      : record_(std::move(record)), properties_(properties) {}
  HostObject(std::shared_ptr<const T> record, Properties<T> properties)
      : record_(std::move(record)), own_(std::move(properties)), properties_(&own_) {}
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  const T& record() const noexcept { return *record_; }

  /// What the record's own `description()` says, otherwise its type and properties: "Point(x: 1, y: 2)". A record that
  /// is being printed already is its type and "(...)".
  String objectDescription() const override {
    const RecordPrinting printing(record_.get(), typeid(T));
    if (!printing.mayGoOn()) return String::concatenation({typeName(), "(...)"});
    if constexpr (DescribesItself<T>) {
      return record_->description();
    } else {
      return described();
    }
  }

  /// Of the record itself, which may be of a type derived from `T`.
  String typeName() const override {
    const T& record = *record_;
    return unqualifiedTypeName(typeid(record));
  }

 protected:
  std::optional<HostValue> child(const String& name) const override {
    for (const Property<T>& property : *properties_) {
      if (property.name == name) return property.read(*record_);
    }
    return std::nullopt;
  }

 private:
  String described() const {
    StringBuilder text;
    text.append(typeName()).append("(");
    for (const Property<T>& property : *properties_) {
      if (&property != &properties_->front()) text.append(", ");
      text.append(property.name).append(": ").append(property.read(*record_).printed());
    }
    return text.append(")").build();
  }

  std::shared_ptr<const T> record_;
  Properties<T> own_;
  const Properties<T>* properties_;
};

/// An object over a copy of a record, by a table of properties that nothing stands in. If it is a record of numbers, no
/// function does.
template <typename T>
class CopiedRecord final : public HostObject<T> {
 public:
  CopiedRecord(const T& record, const Properties<T>* properties)
      : HostObject<T>(std::make_shared<const T>(record), properties) {}

  bool mayHoldFunctions() const noexcept override { return !std::is_trivially_destructible_v<T>; }
};

/// A described record as an object, copied.
template <Described T>
Ref<const Object> object(const T& record) {
  return makeRef<CopiedRecord<T>>(record, &describedProperties<T>());
}

/// A described record as an object that shares it with the host and shows its current state.
template <Described T>
Ref<const Object> object(std::shared_ptr<T> record) {
  return makeRef<HostObject<std::remove_const_t<T>>>(std::move(record), &describedProperties<std::remove_const_t<T>>());
}

/// A record as an object by a table of its properties.
template <typename T>
Ref<const Object> object(const T& record, Properties<T> properties) {
  return makeRef<HostObject<T>>(std::make_shared<const T>(record), std::move(properties));
}

template <Described T>
Ref<const Object> asObject(const T& record) {
  return object(record);
}

template <Described T>
Ref<const Object> asObject(const std::shared_ptr<T>& record) {
  return record ? object(record) : nullptr;
}

}  // namespace velto
