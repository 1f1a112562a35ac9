// Generated from model.json. Change the model, not this file.
import { isDate, isId, isRecord, isText, optional, required, type IsoDate } from "./checks.js";
import { isStaffRole, type StaffRole } from "./enumerations.js";
import type { BranchId } from "./branch.js";

/** The key of a {@link StaffMember}. */
export type StaffMemberId = number & { readonly __key: "StaffMember" };

/** Somebody who works at a branch, paid or not. */
export interface StaffMember {
  readonly id: StaffMemberId;
  /** Where they usually work. */
  readonly branch: BranchId;
  /** Who shows them the ropes. */
  readonly mentor?: StaffMemberId;
  /** For letters and lists. */
  readonly familyName: string;
  /** For the badge. */
  readonly givenName: string;
  /** Also the name for signing in. */
  readonly email: string;
  /** What they may do. */
  readonly role: StaffRole;
  /** The first day of work. */
  readonly hiredOn: IsoDate;
  /** The last one. */
  readonly leftOn?: IsoDate;
}

/** Whether `value`, read from JSON say, is a {@link StaffMember}. */
export function isStaffMember(value: unknown): value is StaffMember {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "branch", isId) &&
    optional(value, "mentor", isId) &&
    required(value, "familyName", isText) &&
    required(value, "givenName", isText) &&
    required(value, "email", isText) &&
    required(value, "role", isStaffRole) &&
    required(value, "hiredOn", isDate) &&
    optional(value, "leftOn", isDate)
  );
}
