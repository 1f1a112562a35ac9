// Generated from model.json. Change the model, not this file.
import { isBetween, isId, isRecord, required } from "./checks.js";
import { isWeekday, type Weekday } from "./enumerations.js";
import type { BranchId } from "./branch.js";

/** The key of a {@link OpeningHour}. */
export type OpeningHourId = number & { readonly __key: "OpeningHour" };

/** A stretch of a weekday on which a branch is open. */
export interface OpeningHour {
  readonly id: OpeningHourId;
  /** The branch that is open. */
  readonly branch: BranchId;
  /** The day, every week. */
  readonly day: Weekday;
  /** Minutes since midnight. */
  readonly opensAt: number;
  /** Minutes since midnight. */
  readonly closesAt: number;
}

/** Whether `value`, read from JSON say, is a {@link OpeningHour}. */
export function isOpeningHour(value: unknown): value is OpeningHour {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "branch", isId) &&
    required(value, "day", isWeekday) &&
    required(value, "opensAt", isBetween(0, 1439)) &&
    required(value, "closesAt", isBetween(1, 1440))
  );
}
