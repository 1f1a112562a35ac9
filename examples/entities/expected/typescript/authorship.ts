// Generated from model.json. Change the model, not this file.
import { isBetween, isId, isRecord, required } from "./checks.js";
import { isContribution, type Contribution } from "./enumerations.js";
import type { AuthorId } from "./author.js";
import type { WorkId } from "./work.js";

/** The key of a {@link Authorship}. */
export type AuthorshipId = number & { readonly __key: "Authorship" };

/** One person's part in one work. */
export interface Authorship {
  readonly id: AuthorshipId;
  /** The work. */
  readonly work: WorkId;
  /** The person. */
  readonly author: AuthorId;
  /** What the person did. */
  readonly contribution: Contribution;
  /** The order on the title page. */
  readonly position: number;
}

/** Whether `value`, read from JSON say, is a {@link Authorship}. */
export function isAuthorship(value: unknown): value is Authorship {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "work", isId) &&
    required(value, "author", isId) &&
    required(value, "contribution", isContribution) &&
    required(value, "position", isBetween(1, Infinity))
  );
}
