// Generated from model.json. Change the model, not this file.
import { isBetween, isId, isRecord, isText, isTimestamp, optional, required, type Cents, type IsoTimestamp } from "./checks.js";
import type { RoomId } from "./room.js";
import type { StaffMemberId } from "./staffMember.js";

/** The key of a {@link Event}. */
export type EventId = number & { readonly __key: "Event" };

/** Something that happens in a room at a time. */
export interface Event {
  readonly id: EventId;
  /** Where it happens. */
  readonly room: RoomId;
  /** Who is answerable for it. */
  readonly host: StaffMemberId;
  /** As on the poster. */
  readonly title: string;
  /** A few sentences for the programme. */
  readonly summary?: string;
  /** Doors open a quarter of an hour earlier. */
  readonly startsAt: IsoTimestamp;
  /** When the room is free again. */
  readonly endsAt: IsoTimestamp;
  /** Nothing for most. */
  readonly admission: Cents;
}

/** Whether `value`, read from JSON say, is a {@link Event}. */
export function isEvent(value: unknown): value is Event {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "room", isId) &&
    required(value, "host", isId) &&
    required(value, "title", isText) &&
    optional(value, "summary", isText) &&
    required(value, "startsAt", isTimestamp) &&
    required(value, "endsAt", isTimestamp) &&
    required(value, "admission", isBetween(0, Infinity))
  );
}
