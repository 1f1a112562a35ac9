// Generated from model.json. Change the model, not this file.
import { isDate, isId, isRecord, isTimestamp, optional, required, type IsoDate, type IsoTimestamp } from "./checks.js";
import { isReservationState, type ReservationState } from "./enumerations.js";
import type { BranchId } from "./branch.js";
import type { EditionId } from "./edition.js";
import type { MemberId } from "./member.js";

/** The key of a {@link Reservation}. */
export type ReservationId = number & { readonly __key: "Reservation" };

/** A member's place in the queue for an edition. */
export interface Reservation {
  readonly id: ReservationId;
  /** What is waited for. */
  readonly edition: EditionId;
  /** Who waits. */
  readonly member: MemberId;
  /** Where it will be fetched. */
  readonly pickupBranch: BranchId;
  /** Decides the order of the queue. */
  readonly placedAt: IsoTimestamp;
  /** How far it has come. */
  readonly state: ReservationState;
  /** Once it is ready for pickup. */
  readonly heldUntil?: IsoDate;
}

/** Whether `value`, read from JSON say, is a {@link Reservation}. */
export function isReservation(value: unknown): value is Reservation {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "edition", isId) &&
    required(value, "member", isId) &&
    required(value, "pickupBranch", isId) &&
    required(value, "placedAt", isTimestamp) &&
    required(value, "state", isReservationState) &&
    optional(value, "heldUntil", isDate)
  );
}
