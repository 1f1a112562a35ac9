// Generated from model.json. Change the model, not this file.
import { isId, isRecord, isText, optional, required } from "./checks.js";

/** The key of a {@link Subject}. */
export type SubjectId = number & { readonly __key: "Subject" };

/** A heading of the classification. */
export interface Subject {
  readonly id: SubjectId;
  /** The heading above it; absent at the top. */
  readonly broader?: SubjectId;
  /** Its place in the classification, such as "Nat 310". */
  readonly code: string;
  /** What the code stands for. */
  readonly heading: string;
}

/** Whether `value`, read from JSON say, is a {@link Subject}. */
export function isSubject(value: unknown): value is Subject {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    optional(value, "broader", isId) &&
    required(value, "code", isText) &&
    required(value, "heading", isText)
  );
}
