// Generated from model.json. Change the model, not this file.
import { isId, isRecord, isText, required } from "./checks.js";

/** The key of a {@link Series}. */
export type SeriesId = number & { readonly __key: "Series" };

/** Works that belong together and have an order. */
export interface Series {
  readonly id: SeriesId;
  /** What all volumes share. */
  readonly title: string;
}

/** Whether `value`, read from JSON say, is a {@link Series}. */
export function isSeries(value: unknown): value is Series {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "title", isText)
  );
}
