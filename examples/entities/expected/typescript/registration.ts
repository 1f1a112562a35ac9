// Generated from model.json. Change the model, not this file.
import { isBoolean, isId, isRecord, isTimestamp, optional, required, type IsoTimestamp } from "./checks.js";
import type { EventId } from "./event.js";
import type { MemberId } from "./member.js";

/** The key of a {@link Registration}. */
export type RegistrationId = number & { readonly __key: "Registration" };

/** A member's seat at an event. */
export interface Registration {
  readonly id: RegistrationId;
  /** The event. */
  readonly event: EventId;
  /** The guest. */
  readonly member: MemberId;
  /** Decides who gets in when seats are short. */
  readonly registeredAt: IsoTimestamp;
  /** Absent until the event is over. */
  readonly attended?: boolean;
}

/** Whether `value`, read from JSON say, is a {@link Registration}. */
export function isRegistration(value: unknown): value is Registration {
  return (
    isRecord(value) &&
    required(value, "id", isId) &&
    required(value, "event", isId) &&
    required(value, "member", isId) &&
    required(value, "registeredAt", isTimestamp) &&
    optional(value, "attended", isBoolean)
  );
}
