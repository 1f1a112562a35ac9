// Generated from model.json. Change the model, not this file.
#include "library/Review.h"

#include <ostream>

namespace library {

std::vector<std::string> problems(const Review& review) {
  std::vector<std::string> found;
  if (!review.work) found.emplace_back("work is missing");
  if (!review.member) found.emplace_back("member is missing");
  if (review.stars < 1 || review.stars > 5) {
    found.emplace_back("stars must be 1 to 5");
  }
  return found;
}

std::ostream& operator<<(std::ostream& output, const Review& review) {
  return output << "review " << review.id.value;
}

}  // namespace library
