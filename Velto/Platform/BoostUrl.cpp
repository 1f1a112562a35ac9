// The code of Boost.URL, compiled here and nowhere else.
#include <boost/url/src.hpp>
