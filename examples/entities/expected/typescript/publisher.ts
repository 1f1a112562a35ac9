// Generated from model.json. Change the model, not this file.
import { isId, isRecord, isText, optional, required } from "./checks.js";

/** The key of a {@link Publisher}. */
export type PublisherId = number & { readonly __key: "Publisher" };

/** A house that brings out editions. */
export interface Publisher {
  readonly id: PublisherId;
  /** As on the title page. */
  readonly name: string;
  /** Its seat. */
  readonly city?: string;
  /** An address that begins with https. */
  readonly website?: string;
}

/** Whether `value`, read from JSON say, is a {@link Publisher}. */
export function isPublisher(value: unknown): value is Publisher {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "name", isText) &&
    optional(value, "city", isText) &&
    optional(value, "website", isText)
  );
}
