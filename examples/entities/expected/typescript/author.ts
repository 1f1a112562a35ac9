// Generated from model.json. Change the model, not this file.
import { isId, isInteger, isRecord, isText, optional, required } from "./checks.js";

/** The key of a {@link Author}. */
export type AuthorId = number & { readonly __key: "Author" };

/** Somebody who had a part in a work. */
export interface Author {
  readonly id: AuthorId;
  /** The name that the catalogue sorts by. */
  readonly familyName: string;
  /** Absent for those known by one name. */
  readonly givenName?: string;
  /** Negative before our era. */
  readonly birthYear?: number;
  /** Absent for the living and the unknown. */
  readonly deathYear?: number;
}

/** Whether `value`, read from JSON say, is a {@link Author}. */
export function isAuthor(value: unknown): value is Author {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "familyName", isText) &&
    optional(value, "givenName", isText) &&
    optional(value, "birthYear", isInteger) &&
    optional(value, "deathYear", isInteger)
  );
}
