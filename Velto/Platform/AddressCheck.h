// Whether this is built to find accesses beyond the ends of objects.
#pragma once

namespace velto {

/// Then memory that is shared by many objects holds one, so that it shows when somebody reaches over its end.
#if defined(__has_feature)
constexpr bool areAddressesChecked = __has_feature(address_sanitizer);
#elif defined(__SANITIZE_ADDRESS__)
constexpr bool areAddressesChecked = true;
#else
constexpr bool areAddressesChecked = false;
#endif

}  // namespace velto
