// Every value with members.
#pragma once

#include <optional>

#include "Velto/Forward.h"
#include "Velto/Platform/Ref.h"
#include "Velto/Platform/String.h"

namespace [[gnu::visibility("default")]] velto {

/// A host type becomes visible to templates by deriving from this, or by `object(record)` (HostObject.h). Objects live
/// behind `Ref` and are made by `makeRef`.
class Object : public Counted {
 public:
  /// The member `name`, or nothing. By default the stored property of that name.
  virtual std::optional<Value> get(const String& name) const;

  /// The text of the object wherever it prints.
  virtual String objectDescription() const = 0;

  /// The unqualified name of the object's own type, without template arguments: what `is` compares with.
  virtual String typeName() const;

  /// Whether a function that a program has declared may stand in it: in a `Value` that it holds, or in what that holds.
  /// Such an object lives for as long as the interpreter if a scope has held it that its own functions keep. The answer
  /// is remembered, and mustn't change.
  virtual bool mayHoldFunctions() const noexcept { return true; }

  /// The stored property `name`, if it is an object, a boolean, an `Int` or a `double`; nothing for all else, a
  /// `float`, a `Value` and a callable included.
  std::optional<Value> getFromMirror(const String& name) const;

  /// A value that holds this very object, but for what `Value` copies; it must be behind a `Ref` already: otherwise it
  /// is a fatal stop.
  Value asValue() const;

 protected:
  /// The stored property that this type itself declares under `name`, nothing by default. It doesn't look into base
  /// classes.
  virtual std::optional<HostValue> child(const String& name) const;
};

}  // namespace velto
