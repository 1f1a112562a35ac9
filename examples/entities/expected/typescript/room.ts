// Generated from model.json. Change the model, not this file.
import { isBetween, isBoolean, isId, isRecord, isText, required } from "./checks.js";
import type { BranchId } from "./branch.js";

/** The key of a {@link Room}. */
export type RoomId = number & { readonly __key: "Room" };

/** A room of a branch, for shelves or for people. */
export interface Room {
  readonly id: RoomId;
  /** The building that it is in. */
  readonly branch: BranchId;
  /** As the floor plan has it. */
  readonly name: string;
  /** How many people may sit there. */
  readonly seats: number;
  /** Whether it can be reached without a step. */
  readonly stepFree: boolean;
}

/** Whether `value`, read from JSON say, is a {@link Room}. */
export function isRoom(value: unknown): value is Room {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "branch", isId) &&
    required(value, "name", isText) &&
    required(value, "seats", isBetween(0, Infinity)) &&
    required(value, "stepFree", isBoolean)
  );
}
