-- Rows that the schema must take, and what must hold of it behind them.
INSERT INTO branches (id, name, street, postal_code, opened_on) VALUES (1, 'Main', 'High Street 1', '12345', '1901-05-02');
INSERT INTO rooms (id, branch_id, name) VALUES (1, 1, 'Reading room');
INSERT INTO shelves (id, room_id, label) VALUES (1, 1, 'B 12');
INSERT INTO publishers (id, name) VALUES (1, 'Blackwood');
INSERT INTO works (id, title, language) VALUES (1, 'Middlemarch', 'en');
INSERT INTO editions (id, work_id, publisher_id, title, format, published) VALUES (1, 1, 1, 'Middlemarch', 'hardcover', 1874);
INSERT INTO copies (id, edition_id, shelf_id, barcode, acquired_on, price) VALUES (1, 1, 1, '0001', '2001-01-02', 1200);

-- Constraints that are broken take no row.
INSERT OR IGNORE INTO branches (id, name, street, postal_code, opened_on) VALUES (2, '', 'No name', '1', '2000-01-01');
INSERT OR IGNORE INTO rooms (id, branch_id, name) VALUES (2, 1, 'Reading room');
INSERT OR IGNORE INTO copies (id, edition_id, shelf_id, barcode, condition, acquired_on, price)
  VALUES (2, 1, 1, '0002', 'eaten', '2001-01-02', 1200);

-- Tables that refer to one that is made later.
CREATE TEMPORARY VIEW early_references AS
  SELECT made.name FROM sqlite_master AS made, pragma_foreign_key_list(made.name) AS key
  JOIN sqlite_master AS target ON target.type = 'table' AND target.name = key."table"
  WHERE made.type = 'table' AND target.rowid > made.rowid;

SELECT 'the schema holds'
  WHERE (SELECT count(*) FROM sqlite_master WHERE type = 'table') = 22
    AND (SELECT count(*) FROM branches) = 1
    AND (SELECT count(*) FROM rooms) = 1
    AND (SELECT count(*) FROM copies) = 1
    AND (SELECT condition FROM copies) = 'new'
    AND (SELECT count(*) FROM pragma_foreign_key_check) = 0
    AND (SELECT count(*) FROM early_references) = 0;
