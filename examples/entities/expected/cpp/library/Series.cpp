// Generated from model.json. Change the model, not this file.
#include "library/Series.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Series& series) {
  std::vector<std::string> found;
  if (series.title.empty()) found.emplace_back("title is empty");
  return found;
}

std::ostream& operator<<(std::ostream& output, const Series& series) {
  return output << "series " << series.id.value << " (" << series.title << ')';
}

}  // namespace library
