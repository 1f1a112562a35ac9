// Generated from model.json. Change the model, not this file.
import { isBetween, isId, isRecord, isText, isTimestamp, optional, required, type IsoTimestamp } from "./checks.js";
import type { MemberId } from "./member.js";
import type { WorkId } from "./work.js";

/** The key of a {@link Review}. */
export type ReviewId = number & { readonly __key: "Review" };

/** What a member thinks of a work. */
export interface Review {
  readonly id: ReviewId;
  /** What was read. */
  readonly work: WorkId;
  /** Who read it. */
  readonly member: MemberId;
  /** More is better. */
  readonly stars: number;
  /** In the member's words. */
  readonly opinion?: string;
  /** Of the latest change. */
  readonly writtenAt: IsoTimestamp;
}

/** Whether `value`, read from JSON say, is a {@link Review}. */
export function isReview(value: unknown): value is Review {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "work", isId) &&
    required(value, "member", isId) &&
    required(value, "stars", isBetween(1, 5)) &&
    optional(value, "opinion", isText) &&
    required(value, "writtenAt", isTimestamp)
  );
}
