// Generated from model.json. Change the model, not this file.
#include "library/Enumerations.h"

namespace library {

std::string_view spelling(Contribution contribution) noexcept {
  switch (contribution) {
    case Contribution::author:
      return "author";
    case Contribution::editor:
      return "editor";
    case Contribution::illustrator:
      return "illustrator";
    case Contribution::translator:
      return "translator";
  }
  return {};
}

std::optional<Contribution> contributionFrom(std::string_view spelling) noexcept {
  if (spelling == "author") return Contribution::author;
  if (spelling == "editor") return Contribution::editor;
  if (spelling == "illustrator") return Contribution::illustrator;
  if (spelling == "translator") return Contribution::translator;
  return std::nullopt;
}

std::string_view spelling(EditionFormat editionFormat) noexcept {
  switch (editionFormat) {
    case EditionFormat::hardcover:
      return "hardcover";
    case EditionFormat::paperback:
      return "paperback";
    case EditionFormat::largePrint:
      return "large print";
    case EditionFormat::audioDisc:
      return "audio disc";
    case EditionFormat::ebook:
      return "e-book";
  }
  return {};
}

std::optional<EditionFormat> editionFormatFrom(std::string_view spelling) noexcept {
  if (spelling == "hardcover") return EditionFormat::hardcover;
  if (spelling == "paperback") return EditionFormat::paperback;
  if (spelling == "large print") return EditionFormat::largePrint;
  if (spelling == "audio disc") return EditionFormat::audioDisc;
  if (spelling == "e-book") return EditionFormat::ebook;
  return std::nullopt;
}

std::string_view spelling(CopyCondition copyCondition) noexcept {
  switch (copyCondition) {
    case CopyCondition::new_:
      return "new";
    case CopyCondition::good:
      return "good";
    case CopyCondition::worn:
      return "worn";
    case CopyCondition::damaged:
      return "damaged";
  }
  return {};
}

std::optional<CopyCondition> copyConditionFrom(std::string_view spelling) noexcept {
  if (spelling == "new") return CopyCondition::new_;
  if (spelling == "good") return CopyCondition::good;
  if (spelling == "worn") return CopyCondition::worn;
  if (spelling == "damaged") return CopyCondition::damaged;
  return std::nullopt;
}

std::string_view spelling(StaffRole staffRole) noexcept {
  switch (staffRole) {
    case StaffRole::librarian:
      return "librarian";
    case StaffRole::assistant:
      return "assistant";
    case StaffRole::volunteer:
      return "volunteer";
    case StaffRole::manager:
      return "manager";
  }
  return {};
}

std::optional<StaffRole> staffRoleFrom(std::string_view spelling) noexcept {
  if (spelling == "librarian") return StaffRole::librarian;
  if (spelling == "assistant") return StaffRole::assistant;
  if (spelling == "volunteer") return StaffRole::volunteer;
  if (spelling == "manager") return StaffRole::manager;
  return std::nullopt;
}

std::string_view spelling(Weekday weekday) noexcept {
  switch (weekday) {
    case Weekday::monday:
      return "monday";
    case Weekday::tuesday:
      return "tuesday";
    case Weekday::wednesday:
      return "wednesday";
    case Weekday::thursday:
      return "thursday";
    case Weekday::friday:
      return "friday";
    case Weekday::saturday:
      return "saturday";
    case Weekday::sunday:
      return "sunday";
  }
  return {};
}

std::optional<Weekday> weekdayFrom(std::string_view spelling) noexcept {
  if (spelling == "monday") return Weekday::monday;
  if (spelling == "tuesday") return Weekday::tuesday;
  if (spelling == "wednesday") return Weekday::wednesday;
  if (spelling == "thursday") return Weekday::thursday;
  if (spelling == "friday") return Weekday::friday;
  if (spelling == "saturday") return Weekday::saturday;
  if (spelling == "sunday") return Weekday::sunday;
  return std::nullopt;
}

std::string_view spelling(ReservationState reservationState) noexcept {
  switch (reservationState) {
    case ReservationState::waiting:
      return "waiting";
    case ReservationState::readyForPickup:
      return "ready for pickup";
    case ReservationState::fulfilled:
      return "fulfilled";
    case ReservationState::cancelled:
      return "cancelled";
  }
  return {};
}

std::optional<ReservationState> reservationStateFrom(std::string_view spelling) noexcept {
  if (spelling == "waiting") return ReservationState::waiting;
  if (spelling == "ready for pickup") return ReservationState::readyForPickup;
  if (spelling == "fulfilled") return ReservationState::fulfilled;
  if (spelling == "cancelled") return ReservationState::cancelled;
  return std::nullopt;
}

std::string_view spelling(FineReason fineReason) noexcept {
  switch (fineReason) {
    case FineReason::overdue:
      return "overdue";
    case FineReason::damage:
      return "damage";
    case FineReason::loss:
      return "loss";
  }
  return {};
}

std::optional<FineReason> fineReasonFrom(std::string_view spelling) noexcept {
  if (spelling == "overdue") return FineReason::overdue;
  if (spelling == "damage") return FineReason::damage;
  if (spelling == "loss") return FineReason::loss;
  return std::nullopt;
}

}  // namespace library
