// Generated from model.json. Change the model, not this file.
import { isBoolean, isDate, isId, isRecord, isText, optional, required, type IsoDate } from "./checks.js";
import type { BranchId } from "./branch.js";
import type { MembershipPlanId } from "./membershipPlan.js";

/** The key of a {@link Member}. */
export type MemberId = number & { readonly __key: "Member" };

/** Somebody with a card. */
export interface Member {
  readonly id: MemberId;
  /** Where reservations go if nothing else is said. */
  readonly homeBranch: BranchId;
  /** What the card allows. */
  readonly plan: MembershipPlanId;
  /** Printed on the card. */
  readonly cardNumber: string;
  /** For letters. */
  readonly familyName: string;
  /** For friendlier letters. */
  readonly givenName: string;
  /** Where reminders go; absent for those who want paper. */
  readonly email?: string;
  /** Decides which plans are open. */
  readonly bornOn: IsoDate;
  /** The day the card was made out. */
  readonly joinedOn: IsoDate;
  /** No loans until fines are paid. */
  readonly blocked: boolean;
}

/** Whether `value`, read from JSON say, is a {@link Member}. */
export function isMember(value: unknown): value is Member {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "homeBranch", isId) &&
    required(value, "plan", isId) &&
    required(value, "cardNumber", isText) &&
    required(value, "familyName", isText) &&
    required(value, "givenName", isText) &&
    optional(value, "email", isText) &&
    required(value, "bornOn", isDate) &&
    required(value, "joinedOn", isDate) &&
    required(value, "blocked", isBoolean)
  );
}
