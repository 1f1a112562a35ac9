// Generated from model.json. Change the model, not this file.
import { isBetween, isId, isInteger, isRecord, isText, optional, required } from "./checks.js";
import type { SeriesId } from "./series.js";

/** The key of a {@link Work}. */
export type WorkId = number & { readonly __key: "Work" };

/** What an author wrote, whatever it was printed as. */
export interface Work {
  readonly id: WorkId;
  /** The series that it is a volume of. */
  readonly series?: SeriesId;
  /** The title in the language of this library. */
  readonly title: string;
  /** Where it differs. */
  readonly originalTitle?: string;
  /** Of the original, as a code of two or three letters. */
  readonly language: string;
  /** The year; negative before our era. */
  readonly firstPublished?: number;
  /** Its number within the series. */
  readonly volume?: number;
}

/** Whether `value`, read from JSON say, is a {@link Work}. */
export function isWork(value: unknown): value is Work {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    optional(value, "series", isId) &&
    required(value, "title", isText) &&
    optional(value, "originalTitle", isText) &&
    required(value, "language", isText) &&
    optional(value, "firstPublished", isInteger) &&
    optional(value, "volume", isBetween(1, Infinity))
  );
}
