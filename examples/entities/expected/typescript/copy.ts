// Generated from model.json. Change the model, not this file.
import { isBetween, isDate, isId, isRecord, isText, optional, required, type Cents, type IsoDate } from "./checks.js";
import { isCopyCondition, type CopyCondition } from "./enumerations.js";
import type { EditionId } from "./edition.js";
import type { ShelfId } from "./shelf.js";

/** The key of a {@link Copy}. */
export type CopyId = number & { readonly __key: "Copy" };

/** One book that a hand can take from a shelf. */
export interface Copy {
  readonly id: CopyId;
  /** What it is a copy of. */
  readonly edition: EditionId;
  /** Where it belongs. */
  readonly shelf: ShelfId;
  /** The number on its label. */
  readonly barcode: string;
  /** As of its last return. */
  readonly condition: CopyCondition;
  /** The day it was entered. */
  readonly acquiredOn: IsoDate;
  /** What a replacement costs. */
  readonly price: Cents;
  /** The day it was sold or thrown away. */
  readonly withdrawnOn?: IsoDate;
}

/** Whether `value`, read from JSON say, is a {@link Copy}. */
export function isCopy(value: unknown): value is Copy {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "edition", isId) &&
    required(value, "shelf", isId) &&
    required(value, "barcode", isText) &&
    required(value, "condition", isCopyCondition) &&
    required(value, "acquiredOn", isDate) &&
    required(value, "price", isBetween(0, Infinity)) &&
    optional(value, "withdrawnOn", isDate)
  );
}
