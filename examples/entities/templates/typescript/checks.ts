<% var comment = "//" include "templates/notice.txt" -%>

/** An amount of money. */
export type Cents = number;

/** A day, such as "2024-02-29". */
export type IsoDate = string;

/** A moment in universal time, such as "2024-02-29T18:30:00Z". */
export type IsoTimestamp = string;

export type Check = (value: unknown) => boolean;

type UnknownRecord = Readonly<Record<string, unknown>>;

export function isRecord(value: unknown): value is UnknownRecord {
  return typeof value === "object" && value !== null && !Array.isArray(value);
}

/** Whether `record` has a member that passes the check. */
export function required(record: UnknownRecord, name: string, check: Check): boolean {
  return check(record[name]);
}

/** Whether the member passes the check or is left out. */
export function optional(record: UnknownRecord, name: string, check: Check): boolean {
  return record[name] === undefined || check(record[name]);
}

export function isId(value: unknown): boolean {
  return isInteger(value) && value > 0;
}

export function isText(value: unknown): value is string {
  return typeof value === "string" && value !== "";
}

export function isBoolean(value: unknown): value is boolean {
  return typeof value === "boolean";
}

export function isInteger(value: unknown): value is number {
  return Number.isSafeInteger(value);
}

export function isBetween(minimum: number, maximum: number): Check {
  return (value) => isInteger(value) && value >= minimum && value <= maximum;
}

export function isDate(value: unknown): value is IsoDate {
  return typeof value === "string" && /^\d{4}-\d{2}-\d{2}$/.test(value);
}

export function isTimestamp(value: unknown): value is IsoTimestamp {
  return typeof value === "string" && /^\d{4}-\d{2}-\d{2}T\d{2}:\d{2}:\d{2}Z$/.test(value);
}
