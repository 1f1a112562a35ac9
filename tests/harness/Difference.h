// Two texts side by side, for people.
#pragma once

#include <string>

namespace harness {

/// The lines of both texts: "-" before a line that is only expected, "+" before one that is only there.
std::string difference(const std::string& expected, const std::string& actual);

}  // namespace harness
