// Generated from model.json. Change the model, not this file.
import { isBetween, isId, isRecord, isText, required, type Cents } from "./checks.js";

/** The key of a {@link MembershipPlan}. */
export type MembershipPlanId = number & { readonly __key: "MembershipPlan" };

/** What a card costs and what it allows. */
export interface MembershipPlan {
  readonly id: MembershipPlanId;
  /** As on the price list. */
  readonly name: string;
  /** Nothing for children. */
  readonly yearlyFee: Cents;
  /** How many copies may be out at once. */
  readonly loanLimit: number;
  /** How long a copy may stay out. */
  readonly loanDays: number;
}

/** Whether `value`, read from JSON say, is a {@link MembershipPlan}. */
export function isMembershipPlan(value: unknown): value is MembershipPlan {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "name", isText) &&
    required(value, "yearlyFee", isBetween(0, Infinity)) &&
    required(value, "loanLimit", isBetween(1, Infinity)) &&
    required(value, "loanDays", isBetween(1, Infinity))
  );
}
