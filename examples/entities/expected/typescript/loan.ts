// Generated from model.json. Change the model, not this file.
import { isBetween, isDate, isId, isRecord, isTimestamp, optional, required, type IsoDate, type IsoTimestamp } from "./checks.js";
import type { CopyId } from "./copy.js";
import type { MemberId } from "./member.js";
import type { StaffMemberId } from "./staffMember.js";

/** The key of a {@link Loan}. */
export type LoanId = number & { readonly __key: "Loan" };

/** A copy in the hands of a member. */
export interface Loan {
  readonly id: LoanId;
  /** What was lent. */
  readonly copy: CopyId;
  /** Who has it. */
  readonly member: MemberId;
  /** Absent for the lending machine. */
  readonly lentBy?: StaffMemberId;
  /** When it went over the desk. */
  readonly lentAt: IsoTimestamp;
  /** The last day without a fine. */
  readonly dueOn: IsoDate;
  /** How often the due day was moved. */
  readonly renewals: number;
  /** Absent while it is out. */
  readonly returnedAt?: IsoTimestamp;
}

/** Whether `value`, read from JSON say, is a {@link Loan}. */
export function isLoan(value: unknown): value is Loan {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "copy", isId) &&
    required(value, "member", isId) &&
    optional(value, "lentBy", isId) &&
    required(value, "lentAt", isTimestamp) &&
    required(value, "dueOn", isDate) &&
    required(value, "renewals", isBetween(0, 3)) &&
    optional(value, "returnedAt", isTimestamp)
  );
}
