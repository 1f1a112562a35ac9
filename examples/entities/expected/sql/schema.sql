-- Generated from model.json. Change the model, not this file.
--
-- A public library: What a town's library knows about its books, its people and what goes on between them.
-- Each table stands behind all that it refers to. Amounts of money are in cents.

-- Somebody who had a part in a work.
CREATE TABLE authors (
  id bigint PRIMARY KEY,
  -- The name that the catalogue sorts by.
  family_name text NOT NULL CHECK (family_name <> ''),
  -- Absent for those known by one name.
  given_name text CHECK (given_name <> ''),
  -- Negative before our era.
  birth_year integer,
  -- Absent for the living and the unknown.
  death_year integer
);

-- A building with its own shelves and opening hours.
CREATE TABLE branches (
  id bigint PRIMARY KEY,
  -- What the sign over the door says.
  name text NOT NULL UNIQUE CHECK (name <> ''),
  -- Street and house number.
  street text NOT NULL CHECK (street <> ''),
  -- As the post writes it.
  postal_code text NOT NULL CHECK (postal_code <> ''),
  -- With its country code.
  phone text CHECK (phone <> ''),
  -- The first day of lending.
  opened_on date NOT NULL
);

-- What a card costs and what it allows.
CREATE TABLE membership_plans (
  id bigint PRIMARY KEY,
  -- As on the price list.
  name text NOT NULL UNIQUE CHECK (name <> ''),
  -- Nothing for children.
  yearly_fee bigint NOT NULL DEFAULT 0 CHECK (yearly_fee >= 0),
  -- How many copies may be out at once.
  loan_limit integer NOT NULL DEFAULT 20 CHECK (loan_limit >= 1),
  -- How long a copy may stay out.
  loan_days integer NOT NULL DEFAULT 28 CHECK (loan_days >= 1)
);

-- A house that brings out editions.
CREATE TABLE publishers (
  id bigint PRIMARY KEY,
  -- As on the title page.
  name text NOT NULL UNIQUE CHECK (name <> ''),
  -- Its seat.
  city text CHECK (city <> ''),
  -- An address that begins with https.
  website text CHECK (website <> '')
);

-- Works that belong together and have an order.
CREATE TABLE series (
  id bigint PRIMARY KEY,
  -- What all volumes share.
  title text NOT NULL CHECK (title <> '')
);

-- A heading of the classification.
CREATE TABLE subjects (
  id bigint PRIMARY KEY,
  -- The heading above it; absent at the top.
  broader_id bigint REFERENCES subjects (id),
  -- Its place in the classification, such as "Nat 310".
  code text NOT NULL UNIQUE CHECK (code <> ''),
  -- What the code stands for.
  heading text NOT NULL CHECK (heading <> '')
);
CREATE INDEX subjects_by_broader ON subjects (broader_id);

-- Somebody with a card.
CREATE TABLE members (
  id bigint PRIMARY KEY,
  -- Where reservations go if nothing else is said.
  home_branch_id bigint NOT NULL REFERENCES branches (id),
  -- What the card allows.
  plan_id bigint NOT NULL REFERENCES membership_plans (id),
  -- Printed on the card.
  card_number text NOT NULL UNIQUE CHECK (card_number <> ''),
  -- For letters.
  family_name text NOT NULL CHECK (family_name <> ''),
  -- For friendlier letters.
  given_name text NOT NULL CHECK (given_name <> ''),
  -- Where reminders go; absent for those who want paper.
  email text CHECK (email <> ''),
  -- Decides which plans are open.
  born_on date NOT NULL,
  -- The day the card was made out.
  joined_on date NOT NULL,
  -- No loans until fines are paid.
  blocked boolean NOT NULL DEFAULT false
);
CREATE INDEX members_by_home_branch ON members (home_branch_id);
CREATE INDEX members_by_plan ON members (plan_id);

-- A stretch of a weekday on which a branch is open.
CREATE TABLE opening_hours (
  id bigint PRIMARY KEY,
  -- The branch that is open.
  branch_id bigint NOT NULL REFERENCES branches (id),
  -- The day, every week.
  day text NOT NULL CHECK (day IN ('monday', 'tuesday', 'wednesday', 'thursday', 'friday', 'saturday', 'sunday')),
  -- Minutes since midnight.
  opens_at integer NOT NULL CHECK (opens_at BETWEEN 0 AND 1439),
  -- Minutes since midnight.
  closes_at integer NOT NULL CHECK (closes_at BETWEEN 1 AND 1440),
  UNIQUE (branch_id, day, opens_at)
);
CREATE INDEX opening_hours_by_branch ON opening_hours (branch_id);

-- A room of a branch, for shelves or for people.
CREATE TABLE rooms (
  id bigint PRIMARY KEY,
  -- The building that it is in.
  branch_id bigint NOT NULL REFERENCES branches (id),
  -- As the floor plan has it.
  name text NOT NULL CHECK (name <> ''),
  -- How many people may sit there.
  seats integer NOT NULL DEFAULT 0 CHECK (seats >= 0),
  -- Whether it can be reached without a step.
  step_free boolean NOT NULL DEFAULT true,
  UNIQUE (branch_id, name)
);
CREATE INDEX rooms_by_branch ON rooms (branch_id);

-- Somebody who works at a branch, paid or not.
CREATE TABLE staff_members (
  id bigint PRIMARY KEY,
  -- Where they usually work.
  branch_id bigint NOT NULL REFERENCES branches (id),
  -- Who shows them the ropes.
  mentor_id bigint REFERENCES staff_members (id),
  -- For letters and lists.
  family_name text NOT NULL CHECK (family_name <> ''),
  -- For the badge.
  given_name text NOT NULL CHECK (given_name <> ''),
  -- Also the name for signing in.
  email text NOT NULL UNIQUE CHECK (email <> ''),
  -- What they may do.
  role text NOT NULL DEFAULT 'assistant' CHECK (role IN ('librarian', 'assistant', 'volunteer', 'manager')),
  -- The first day of work.
  hired_on date NOT NULL,
  -- The last one.
  left_on date
);
CREATE INDEX staff_members_by_branch ON staff_members (branch_id);
CREATE INDEX staff_members_by_mentor ON staff_members (mentor_id);

-- What an author wrote, whatever it was printed as.
CREATE TABLE works (
  id bigint PRIMARY KEY,
  -- The series that it is a volume of.
  series_id bigint REFERENCES series (id),
  -- The title in the language of this library.
  title text NOT NULL CHECK (title <> ''),
  -- Where it differs.
  original_title text CHECK (original_title <> ''),
  -- Of the original, as a code of two or three letters.
  language text NOT NULL CHECK (language <> ''),
  -- The year; negative before our era.
  first_published integer,
  -- Its number within the series.
  volume integer CHECK (volume >= 1)
);
CREATE INDEX works_by_series ON works (series_id);

-- One person's part in one work.
CREATE TABLE authorships (
  id bigint PRIMARY KEY,
  -- The work.
  work_id bigint NOT NULL REFERENCES works (id),
  -- The person.
  author_id bigint NOT NULL REFERENCES authors (id),
  -- What the person did.
  contribution text NOT NULL DEFAULT 'author' CHECK (contribution IN ('author', 'editor', 'illustrator', 'translator')),
  -- The order on the title page.
  position integer NOT NULL DEFAULT 1 CHECK (position >= 1),
  UNIQUE (work_id, author_id, contribution)
);
CREATE INDEX authorships_by_work ON authorships (work_id);
CREATE INDEX authorships_by_author ON authorships (author_id);

-- A subject that a work treats.
CREATE TABLE classifications (
  id bigint PRIMARY KEY,
  -- The work.
  work_id bigint NOT NULL REFERENCES works (id),
  -- One of its subjects.
  subject_id bigint NOT NULL REFERENCES subjects (id),
  UNIQUE (work_id, subject_id)
);
CREATE INDEX classifications_by_work ON classifications (work_id);
CREATE INDEX classifications_by_subject ON classifications (subject_id);

-- A work as one publisher brought it out in one year.
CREATE TABLE editions (
  id bigint PRIMARY KEY,
  -- What it is an edition of.
  work_id bigint NOT NULL REFERENCES works (id),
  -- Who brought it out.
  publisher_id bigint NOT NULL REFERENCES publishers (id),
  -- As printed.
  title text NOT NULL CHECK (title <> ''),
  -- Thirteen digits without hyphens; absent before 1970.
  isbn text UNIQUE CHECK (isbn <> ''),
  -- How it is read.
  format text NOT NULL CHECK (format IN ('hardcover', 'paperback', 'large print', 'audio disc', 'e-book')),
  -- The year.
  published integer NOT NULL,
  -- The last page number; absent for recordings.
  pages integer CHECK (pages >= 1)
);
CREATE INDEX editions_by_work ON editions (work_id);
CREATE INDEX editions_by_publisher ON editions (publisher_id);

-- Something that happens in a room at a time.
CREATE TABLE events (
  id bigint PRIMARY KEY,
  -- Where it happens.
  room_id bigint NOT NULL REFERENCES rooms (id),
  -- Who is answerable for it.
  host_id bigint NOT NULL REFERENCES staff_members (id),
  -- As on the poster.
  title text NOT NULL CHECK (title <> ''),
  -- A few sentences for the programme.
  summary text CHECK (summary <> ''),
  -- Doors open a quarter of an hour earlier.
  starts_at timestamp NOT NULL,
  -- When the room is free again.
  ends_at timestamp NOT NULL,
  -- Nothing for most.
  admission bigint NOT NULL DEFAULT 0 CHECK (admission >= 0)
);
CREATE INDEX events_by_room ON events (room_id);
CREATE INDEX events_by_host ON events (host_id);

-- What a member thinks of a work.
CREATE TABLE reviews (
  id bigint PRIMARY KEY,
  -- What was read.
  work_id bigint NOT NULL REFERENCES works (id),
  -- Who read it.
  member_id bigint NOT NULL REFERENCES members (id),
  -- More is better.
  stars integer NOT NULL CHECK (stars BETWEEN 1 AND 5),
  -- In the member's words.
  opinion text CHECK (opinion <> ''),
  -- Of the latest change.
  written_at timestamp NOT NULL,
  UNIQUE (work_id, member_id)
);
CREATE INDEX reviews_by_work ON reviews (work_id);
CREATE INDEX reviews_by_member ON reviews (member_id);

-- Where copies stand when they are not out.
CREATE TABLE shelves (
  id bigint PRIMARY KEY,
  -- The room that it stands in.
  room_id bigint NOT NULL REFERENCES rooms (id),
  -- What is kept there, where that is settled.
  subject_id bigint REFERENCES subjects (id),
  -- The sign at its end, such as "B 12".
  label text NOT NULL CHECK (label <> ''),
  UNIQUE (room_id, label)
);
CREATE INDEX shelves_by_room ON shelves (room_id);
CREATE INDEX shelves_by_subject ON shelves (subject_id);

-- One book that a hand can take from a shelf.
CREATE TABLE copies (
  id bigint PRIMARY KEY,
  -- What it is a copy of.
  edition_id bigint NOT NULL REFERENCES editions (id),
  -- Where it belongs.
  shelf_id bigint NOT NULL REFERENCES shelves (id),
  -- The number on its label.
  barcode text NOT NULL UNIQUE CHECK (barcode <> ''),
  -- As of its last return.
  condition text NOT NULL DEFAULT 'new' CHECK (condition IN ('new', 'good', 'worn', 'damaged')),
  -- The day it was entered.
  acquired_on date NOT NULL,
  -- What a replacement costs.
  price bigint NOT NULL CHECK (price >= 0),
  -- The day it was sold or thrown away.
  withdrawn_on date
);
CREATE INDEX copies_by_edition ON copies (edition_id);
CREATE INDEX copies_by_shelf ON copies (shelf_id);

-- A member's seat at an event.
CREATE TABLE registrations (
  id bigint PRIMARY KEY,
  -- The event.
  event_id bigint NOT NULL REFERENCES events (id),
  -- The guest.
  member_id bigint NOT NULL REFERENCES members (id),
  -- Decides who gets in when seats are short.
  registered_at timestamp NOT NULL,
  -- Absent until the event is over.
  attended boolean,
  UNIQUE (event_id, member_id)
);
CREATE INDEX registrations_by_event ON registrations (event_id);
CREATE INDEX registrations_by_member ON registrations (member_id);

-- A member's place in the queue for an edition.
CREATE TABLE reservations (
  id bigint PRIMARY KEY,
  -- What is waited for.
  edition_id bigint NOT NULL REFERENCES editions (id),
  -- Who waits.
  member_id bigint NOT NULL REFERENCES members (id),
  -- Where it will be fetched.
  pickup_branch_id bigint NOT NULL REFERENCES branches (id),
  -- Decides the order of the queue.
  placed_at timestamp NOT NULL,
  -- How far it has come.
  state text NOT NULL DEFAULT 'waiting' CHECK (state IN ('waiting', 'ready for pickup', 'fulfilled', 'cancelled')),
  -- Once it is ready for pickup.
  held_until date
);
CREATE INDEX reservations_by_edition ON reservations (edition_id);
CREATE INDEX reservations_by_member ON reservations (member_id);
CREATE INDEX reservations_by_pickup_branch ON reservations (pickup_branch_id);

-- A copy in the hands of a member.
CREATE TABLE loans (
  id bigint PRIMARY KEY,
  -- What was lent.
  copy_id bigint NOT NULL REFERENCES copies (id),
  -- Who has it.
  member_id bigint NOT NULL REFERENCES members (id),
  -- Absent for the lending machine.
  lent_by_id bigint REFERENCES staff_members (id),
  -- When it went over the desk.
  lent_at timestamp NOT NULL,
  -- The last day without a fine.
  due_on date NOT NULL,
  -- How often the due day was moved.
  renewals integer NOT NULL DEFAULT 0 CHECK (renewals BETWEEN 0 AND 3),
  -- Absent while it is out.
  returned_at timestamp
);
CREATE INDEX loans_by_copy ON loans (copy_id);
CREATE INDEX loans_by_member ON loans (member_id);
CREATE INDEX loans_by_lent_by ON loans (lent_by_id);

-- Money that a member owes for a loan.
CREATE TABLE fines (
  id bigint PRIMARY KEY,
  -- The loan that went wrong.
  loan_id bigint NOT NULL REFERENCES loans (id),
  -- What is owed.
  amount bigint NOT NULL CHECK (amount >= 1),
  -- Why.
  reason text NOT NULL CHECK (reason IN ('overdue', 'damage', 'loss')),
  -- The day of the bill.
  raised_on date NOT NULL,
  -- Absent while it is owed.
  paid_on date
);
CREATE INDEX fines_by_loan ON fines (loan_id);
