-- What a database on a server needs before the other files here, which serve both kinds of store. Made once, by its owner:
--   createdb -T template0 -E UTF8 --locale=C orv && psql -d orv -f server.sql -f schema.sql -f masters.sql
-- The locale is C, so that lists come in the same order as from a file: '---------' before all numbers.

-- The embedded store has this by itself.
CREATE COLLATION NOCASE (provider = icu, locale = 'und-u-ks-level2', deterministic = false);
