// Generated from model.json. Change the model, not this file.
import { isBetween, isId, isInteger, isRecord, isText, optional, required } from "./checks.js";
import { isEditionFormat, type EditionFormat } from "./enumerations.js";
import type { PublisherId } from "./publisher.js";
import type { WorkId } from "./work.js";

/** The key of a {@link Edition}. */
export type EditionId = number & { readonly __key: "Edition" };

/** A work as one publisher brought it out in one year. */
export interface Edition {
  readonly id: EditionId;
  /** What it is an edition of. */
  readonly work: WorkId;
  /** Who brought it out. */
  readonly publisher: PublisherId;
  /** As printed. */
  readonly title: string;
  /** Thirteen digits without hyphens; absent before 1970. */
  readonly isbn?: string;
  /** How it is read. */
  readonly format: EditionFormat;
  /** The year. */
  readonly published: number;
  /** The last page number; absent for recordings. */
  readonly pages?: number;
}

/** Whether `value`, read from JSON say, is a {@link Edition}. */
export function isEdition(value: unknown): value is Edition {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "work", isId) &&
    required(value, "publisher", isId) &&
    required(value, "title", isText) &&
    optional(value, "isbn", isText) &&
    required(value, "format", isEditionFormat) &&
    required(value, "published", isInteger) &&
    optional(value, "pages", isBetween(1, Infinity))
  );
}
