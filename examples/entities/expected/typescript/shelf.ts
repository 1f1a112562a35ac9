// Generated from model.json. Change the model, not this file.
import { isId, isRecord, isText, optional, required } from "./checks.js";
import type { RoomId } from "./room.js";
import type { SubjectId } from "./subject.js";

/** The key of a {@link Shelf}. */
export type ShelfId = number & { readonly __key: "Shelf" };

/** Where copies stand when they are not out. */
export interface Shelf {
  readonly id: ShelfId;
  /** The room that it stands in. */
  readonly room: RoomId;
  /** What is kept there, where that is settled. */
  readonly subject?: SubjectId;
  /** The sign at its end, such as "B 12". */
  readonly label: string;
}

/** Whether `value`, read from JSON say, is a {@link Shelf}. */
export function isShelf(value: unknown): value is Shelf {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "room", isId) &&
    optional(value, "subject", isId) &&
    required(value, "label", isText)
  );
}
