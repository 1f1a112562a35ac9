// Generated from model.json. Change the model, not this file.
import { isBetween, isDate, isId, isRecord, optional, required, type Cents, type IsoDate } from "./checks.js";
import { isFineReason, type FineReason } from "./enumerations.js";
import type { LoanId } from "./loan.js";

/** The key of a {@link Fine}. */
export type FineId = number & { readonly __key: "Fine" };

/** Money that a member owes for a loan. */
export interface Fine {
  readonly id: FineId;
  /** The loan that went wrong. */
  readonly loan: LoanId;
  /** What is owed. */
  readonly amount: Cents;
  /** Why. */
  readonly reason: FineReason;
  /** The day of the bill. */
  readonly raisedOn: IsoDate;
  /** Absent while it is owed. */
  readonly paidOn?: IsoDate;
}

/** Whether `value`, read from JSON say, is a {@link Fine}. */
export function isFine(value: unknown): value is Fine {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "loan", isId) &&
    required(value, "amount", isBetween(1, Infinity)) &&
    required(value, "reason", isFineReason) &&
    required(value, "raisedOn", isDate) &&
    optional(value, "paidOn", isDate)
  );
}
