// Generated from model.json. Change the model, not this file.

/** What a person did for a work. */
export type Contribution = (typeof contributionValues)[number];

export const contributionValues = ["author", "editor", "illustrator", "translator"] as const;

export function isContribution(value: unknown): value is Contribution {
  return contributionValues.some((known) => known === value);
}

/** The form in which an edition is read. */
export type EditionFormat = (typeof editionFormatValues)[number];

export const editionFormatValues = ["hardcover", "paperback", "large print", "audio disc", "e-book"] as const;

export function isEditionFormat(value: unknown): value is EditionFormat {
  return editionFormatValues.some((known) => known === value);
}

/** How well a copy has kept. */
export type CopyCondition = (typeof copyConditionValues)[number];

export const copyConditionValues = ["new", "good", "worn", "damaged"] as const;

export function isCopyCondition(value: unknown): value is CopyCondition {
  return copyConditionValues.some((known) => known === value);
}

/** What a member of staff is trusted with. */
export type StaffRole = (typeof staffRoleValues)[number];

export const staffRoleValues = ["librarian", "assistant", "volunteer", "manager"] as const;

export function isStaffRole(value: unknown): value is StaffRole {
  return staffRoleValues.some((known) => known === value);
}

/** A day of the week. */
export type Weekday = (typeof weekdayValues)[number];

export const weekdayValues = ["monday", "tuesday", "wednesday", "thursday", "friday", "saturday", "sunday"] as const;

export function isWeekday(value: unknown): value is Weekday {
  return weekdayValues.some((known) => known === value);
}

/** How far a reservation has come. */
export type ReservationState = (typeof reservationStateValues)[number];

export const reservationStateValues = ["waiting", "ready for pickup", "fulfilled", "cancelled"] as const;

export function isReservationState(value: unknown): value is ReservationState {
  return reservationStateValues.some((known) => known === value);
}

/** Why a fine was raised. */
export type FineReason = (typeof fineReasonValues)[number];

export const fineReasonValues = ["overdue", "damage", "loss"] as const;

export function isFineReason(value: unknown): value is FineReason {
  return fineReasonValues.some((known) => known === value);
}
