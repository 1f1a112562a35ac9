// Generated from model.json. Change the model, not this file.
import { isDate, isId, isRecord, isText, optional, required, type IsoDate } from "./checks.js";

/** The key of a {@link Branch}. */
export type BranchId = number & { readonly __key: "Branch" };

/** A building with its own shelves and opening hours. */
export interface Branch {
  readonly id: BranchId;
  /** What the sign over the door says. */
  readonly name: string;
  /** Street and house number. */
  readonly street: string;
  /** As the post writes it. */
  readonly postalCode: string;
  /** With its country code. */
  readonly phone?: string;
  /** The first day of lending. */
  readonly openedOn: IsoDate;
}

/** Whether `value`, read from JSON say, is a {@link Branch}. */
export function isBranch(value: unknown): value is Branch {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "name", isText) &&
    required(value, "street", isText) &&
    required(value, "postalCode", isText) &&
    optional(value, "phone", isText) &&
    required(value, "openedOn", isDate)
  );
}
