// Generated from model.json. Change the model, not this file.
import { isId, isRecord, required } from "./checks.js";
import type { SubjectId } from "./subject.js";
import type { WorkId } from "./work.js";

/** The key of a {@link Classification}. */
export type ClassificationId = number & { readonly __key: "Classification" };

/** A subject that a work treats. */
export interface Classification {
  readonly id: ClassificationId;
  /** The work. */
  readonly work: WorkId;
  /** One of its subjects. */
  readonly subject: SubjectId;
}

/** Whether `value`, read from JSON say, is a {@link Classification}. */
export function isClassification(value: unknown): value is Classification {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "work", isId) &&
    required(value, "subject", isId)
  );
}
