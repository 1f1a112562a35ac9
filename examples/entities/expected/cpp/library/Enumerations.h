// Generated from model.json. Change the model, not this file.
#pragma once

#include <optional>
#include <string_view>

namespace library {

/// What a person did for a work.
enum class Contribution { author, editor, illustrator, translator };

/// As files and databases spell it.
[[nodiscard]] std::string_view spelling(Contribution contribution) noexcept;

/// The opposite way; nothing for any other text.
[[nodiscard]] std::optional<Contribution> contributionFrom(std::string_view spelling) noexcept;

/// The form in which an edition is read.
enum class EditionFormat { hardcover, paperback, largePrint, audioDisc, ebook };

/// As files and databases spell it.
[[nodiscard]] std::string_view spelling(EditionFormat editionFormat) noexcept;

/// The opposite way; nothing for any other text.
[[nodiscard]] std::optional<EditionFormat> editionFormatFrom(std::string_view spelling) noexcept;

/// How well a copy has kept.
enum class CopyCondition { new_, good, worn, damaged };

/// As files and databases spell it.
[[nodiscard]] std::string_view spelling(CopyCondition copyCondition) noexcept;

/// The opposite way; nothing for any other text.
[[nodiscard]] std::optional<CopyCondition> copyConditionFrom(std::string_view spelling) noexcept;

/// What a member of staff is trusted with.
enum class StaffRole { librarian, assistant, volunteer, manager };

/// As files and databases spell it.
[[nodiscard]] std::string_view spelling(StaffRole staffRole) noexcept;

/// The opposite way; nothing for any other text.
[[nodiscard]] std::optional<StaffRole> staffRoleFrom(std::string_view spelling) noexcept;

/// A day of the week.
enum class Weekday { monday, tuesday, wednesday, thursday, friday, saturday, sunday };

/// As files and databases spell it.
[[nodiscard]] std::string_view spelling(Weekday weekday) noexcept;

/// The opposite way; nothing for any other text.
[[nodiscard]] std::optional<Weekday> weekdayFrom(std::string_view spelling) noexcept;

/// How far a reservation has come.
enum class ReservationState { waiting, readyForPickup, fulfilled, cancelled };

/// As files and databases spell it.
[[nodiscard]] std::string_view spelling(ReservationState reservationState) noexcept;

/// The opposite way; nothing for any other text.
[[nodiscard]] std::optional<ReservationState> reservationStateFrom(std::string_view spelling) noexcept;

/// Why a fine was raised.
enum class FineReason { overdue, damage, loss };

/// As files and databases spell it.
[[nodiscard]] std::string_view spelling(FineReason fineReason) noexcept;

/// The opposite way; nothing for any other text.
[[nodiscard]] std::optional<FineReason> fineReasonFrom(std::string_view spelling) noexcept;

}  // namespace library
