// The random numbers that make hashes differ from process to process.
#pragma once

#include "Velto/Platform/Random.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// One salt for each kind of value, drawn when it is first asked for and the same ever after.
struct Value::Hash {
  static Int uninitialized();
  static Int nil();
  static Int boolean();
  static Int number();
  static Int string();
  static Int range();
  static Int array();
  static Int dictionary();
  static Int object();
  static Int callable();
};

}  // namespace velto
