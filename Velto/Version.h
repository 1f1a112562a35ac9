// The version of the library, readable without C++.
#pragma once

extern "C" {

[[gnu::visibility("default")]] extern const double VeltoVersionNumber;
[[gnu::visibility("default")]] extern const char VeltoVersionString[];

}
