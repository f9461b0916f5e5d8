-- What the functions of translated statements are built from on a PostgreSQL server, together with
-- postgresql-reading.sql and postgresql-format.sql; what is not here stands in the functions' own rows. Runs inside
-- the schema of one account set, again where the functions there are others. Errors of the platform travel as SQLSTATE
-- ZKnnn. Functions that parallel workers may run catch nothing.

-- What an index or a trigger stands on stays, and is replaced below.
DO $$
DECLARE f regprocedure;
BEGIN
  FOR f IN SELECT oid FROM pg_proc WHERE pronamespace = current_schema()::regnamespace AND proname LIKE 'zk\_%' LOOP
    BEGIN
      EXECUTE 'DROP FUNCTION ' || f;
    EXCEPTION WHEN dependent_objects_still_exist THEN NULL;
    END;
  END LOOP;
END $$;

-- Raises the error of that SQLSTATE where an expression is wanted; volatile, or it would be raised in advance.
CREATE OR REPLACE FUNCTION zk_fail(state text) RETURNS numeric LANGUAGE plpgsql VOLATILE PARALLEL SAFE AS $$
BEGIN
  RAISE EXCEPTION USING ERRCODE = state;
END $$;

-- Numbers in texts ----------------------------------------------------------------------------------------

-- Null for what is no whole number of at most nine digits: indexes are kept over it.
CREATE OR REPLACE FUNCTION zk_digits(t text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t ~ '^[0-9]+$' AND length(t) <= 9 THEN t::integer END $$;
CREATE OR REPLACE FUNCTION zk_val(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t ~ '^[0-9]+$' AND length(t) <= 30 THEN t::double precision ELSE zk_val_of_text(t) END $$;
CREATE OR REPLACE FUNCTION zk_val(v double precision) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF v IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  RETURN v;
END $$;

-- Conversions ---------------------------------------------------------------------------------------------

CREATE OR REPLACE FUNCTION zk_given(v anyelement) RETURNS anyelement LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF v IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  RETURN v;
END $$;

CREATE OR REPLACE FUNCTION zk_number(v double precision) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v $$;
CREATE OR REPLACE FUNCTION zk_number_of_text(t text) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE v double precision := zk_read_number(t);
BEGIN
  IF v IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK013'; END IF;
  RETURN v;
END $$;
CREATE OR REPLACE FUNCTION zk_number(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t ~ '^[0-9]+$' AND length(t) <= 15 THEN t::double precision ELSE zk_number_of_text(t) END $$;

-- round() of a double takes ties to the even number.
CREATE OR REPLACE FUNCTION zk_whole(v double precision, most double precision) RETURNS bigint
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF v IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  IF round(v) > most OR round(v) < -most - 1 THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
  RETURN round(v)::bigint;
END $$;
CREATE OR REPLACE FUNCTION zk_fitting_whole(v double precision, most double precision) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN round(v) BETWEEN -most - 1 AND most THEN round(v)::bigint END $$;

-- Four decimals, ties to the even digit.
CREATE OR REPLACE FUNCTION zk_currency(v numeric) RETURNS numeric LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE scaled numeric := v * 10000; whole numeric := round(v * 10000);
BEGIN
  IF abs(scaled - trunc(scaled)) = 0.5 AND whole % 2 <> 0 THEN whole := whole - sign(scaled); END IF;
  IF abs(whole) > 9223372036854775807 THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
  RETURN (whole / 10000)::numeric(19,4);
END $$;
CREATE OR REPLACE FUNCTION zk_currency(v double precision) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_currency(v::numeric) $$;
-- All digits of a text count, not only those that a double holds.
CREATE OR REPLACE FUNCTION zk_currency(t text) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_currency(CASE WHEN zk_number(t) IS NOT NULL THEN zk_read_numeric(t) END) $$;

CREATE OR REPLACE FUNCTION zk_text(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT t $$;
CREATE OR REPLACE FUNCTION zk_text(v bigint) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v::text $$;
CREATE OR REPLACE FUNCTION zk_text(v integer) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v::text $$;
CREATE OR REPLACE FUNCTION zk_text(v smallint) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v::text $$;
CREATE OR REPLACE FUNCTION zk_text(v numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT trim_scale(v)::text $$;
-- The cast to numeric keeps 15 significant digits.
CREATE OR REPLACE FUNCTION zk_text(v double precision) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE n numeric := trim_scale(v::numeric);
BEGIN
  IF abs(n) < 1000000000000000 AND scale(n) <= 15 THEN RETURN n::text; END IF;
  RETURN regexp_replace(trim(to_char(v, '9.99999999999999EEEE')), '\.?0*e', 'E');
END $$;

-- Null where the text is neither a word for a truth value nor a number.
CREATE OR REPLACE FUNCTION zk_boolean(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN v <> 0 THEN -1 WHEN v = 0 THEN 0 END::smallint $$;
CREATE OR REPLACE FUNCTION zk_boolean(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN lower(trim(t)) IN ('true', '#true#') THEN (-1)::smallint
               WHEN lower(trim(t)) IN ('false', '#false#') THEN 0::smallint
               ELSE zk_boolean(zk_fitting_number(t)) END $$;
-- Days since 1899-12-30; before that day the time of day counts away from zero, too.
CREATE OR REPLACE FUNCTION zk_is_serial(v double precision) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT v > -657435 AND v < 2958466 - 0.5 / 86400 $$;
CREATE OR REPLACE FUNCTION zk_date_of_serial(v double precision) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF NOT zk_is_serial(v) THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
  RETURN timestamp '1899-12-30' + make_interval(days => trunc(v)::integer)
         + floor(abs(v - trunc(v)) * 86400 + 0.5) * interval '1 second';
END $$;
CREATE OR REPLACE FUNCTION zk_date(d timestamp) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT d $$;
CREATE OR REPLACE FUNCTION zk_date(v double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_date_of_serial(v) $$;
CREATE OR REPLACE FUNCTION zk_date(t text) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE d timestamp := zk_read_date(t);
BEGIN
  IF d IS NULL AND t IS NOT NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK013'; END IF;
  RETURN d;
END $$;
CREATE OR REPLACE FUNCTION zk_datetext(d timestamp) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN d::date = date '1899-12-30' THEN to_char(d, 'FMHH24:MI:SS')
               WHEN d = date_trunc('day', d) THEN to_char(d, 'FMYYYY-FMMM-FMDD')
               ELSE to_char(d, 'FMYYYY-FMMM-FMDD FMHH24:MI:SS') END $$;
CREATE OR REPLACE FUNCTION zk_serial(d timestamp) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT (d::date - date '1899-12-30') + sign((d::date - date '1899-12-30') + 0.5)
          * extract(epoch FROM d::time)::double precision / 86400 $$;

-- What a column stores: Null where the value does not fit.
CREATE OR REPLACE FUNCTION zk_fitting_number(v double precision) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v $$;
CREATE OR REPLACE FUNCTION zk_fitting_number(v numeric) RETURNS numeric
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v $$;
CREATE OR REPLACE FUNCTION zk_fitting_date(d timestamp) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT d $$;
CREATE OR REPLACE FUNCTION zk_fitting_date(v double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN zk_is_serial(v) THEN zk_date_of_serial(v) END $$;
CREATE OR REPLACE FUNCTION zk_fitting_date(t text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_read_date(t) $$;

-- Texts ---------------------------------------------------------------------------------------------------

-- What stands between brackets in a pattern of LIKE, as an expression for one character.
CREATE OR REPLACE FUNCTION zk_regex_class(list text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE negated boolean := left(list, 1) = '!' AND list <> '!';
        rest text := CASE WHEN negated THEN substr(list, 2) ELSE list END;
        low text; high text; members text := '';
BEGIN
  WHILE rest <> '' LOOP
    low := left(rest, 1);
    high := CASE WHEN substr(rest, 2, 1) = '-' AND length(rest) > 2 THEN substr(rest, 3, 1) ELSE low END;
    rest := substr(rest, CASE WHEN substr(rest, 2, 1) = '-' AND length(rest) > 2 THEN 4 ELSE 2 END);
    CONTINUE WHEN low > high;
    members := members || regexp_replace(low, '([^[:alnum:]])', '\\\1') || '-'
               || regexp_replace(high, '([^[:alnum:]])', '\\\1');
  END LOOP;
  IF members = '' THEN RETURN CASE WHEN negated THEN '.' ELSE '\y\Y' END; END IF;
  RETURN '[' || CASE WHEN negated THEN '^' ELSE '' END || members || ']';
END $$;
-- A pattern of LIKE as a regular expression over letters in lower case; what cannot match is \y\Y.
CREATE OR REPLACE FUNCTION zk_regex(pattern text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE rest text := lower(pattern); result text := '^'; sign text; close integer;
BEGIN
  WHILE rest <> '' LOOP
    sign := left(rest, 1);
    rest := substr(rest, 2);
    IF sign = '*' THEN result := result || '.*';
    ELSIF sign = '?' THEN result := result || '.';
    ELSIF sign = '#' THEN result := result || '[0-9]';
    ELSIF sign = '[' THEN
      close := strpos(rest, ']');
      IF close = 0 THEN RETURN '^\y\Y'; END IF;
      IF close > 1 THEN result := result || zk_regex_class(left(rest, close - 1)); END IF;
      rest := substr(rest, close + 1);
    ELSE result := result || regexp_replace(sign, '([][\\^$.|?*+(){}])', '\\\1');
    END IF;
  END LOOP;
  RETURN result || '$';
END $$;
CREATE OR REPLACE FUNCTION zk_like(pattern text, t text) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT lower(t) ~ zk_regex(pattern) $$;

CREATE OR REPLACE FUNCTION zk_length(v double precision, lowest integer) RETURNS integer
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF round(v) NOT BETWEEN lowest AND 2147483647 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN round(v)::integer;
END $$;

-- Doubles are added as they are written: in ten-thousandths what has no more decimals, as amounts have, and with the 15
-- digits of the cast to numeric what is left. An average gets more digits than a double holds before it becomes one.
CREATE OR REPLACE FUNCTION zk_amount(v double precision) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN abs(v) < 1e11 AND round(v * 10000) / 10000 = v THEN (v * 10000)::bigint END $$;
CREATE OR REPLACE FUNCTION zk_rest(v double precision) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN abs(v) < 1e11 AND round(v * 10000) / 10000 = v THEN NULL ELSE v::numeric END $$;
CREATE OR REPLACE FUNCTION zk_total(amounts numeric, rest numeric) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT coalesce(amounts * 0.0001 + rest, amounts * 0.0001, rest) $$;
CREATE OR REPLACE FUNCTION zk_average(total numeric, count bigint) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT ((total + 0e-40) / nullif(count, 0))::double precision $$;

-- Raises error 11 for a divisor that rounds to 0.
CREATE OR REPLACE FUNCTION zk_divisor(b double precision) RETURNS integer
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF zk_whole(b, 2147483647) = 0 THEN RAISE EXCEPTION USING ERRCODE = 'ZK011'; END IF;
  RETURN zk_whole(b, 2147483647);
END $$;

-- Tables --------------------------------------------------------------------------------------------------

-- A counter goes on behind the greatest number that its table holds. Other sessions draw numbers meanwhile, and a
-- counter must not go back behind one of theirs: near numbers are drawn one by one, a far one is set while nobody
-- else sets one. That lock is held for this moment, not to the end of the transaction.
CREATE OR REPLACE FUNCTION zk_counter_goes_on() RETURNS trigger LANGUAGE plpgsql AS $$
DECLARE counter regclass := pg_get_serial_sequence(format('%I.%I', TG_TABLE_SCHEMA, TG_TABLE_NAME), TG_ARGV[0]);
        most bigint; reached bigint;
BEGIN
  EXECUTE format('SELECT max(%I) FROM %I.%I', TG_ARGV[0], TG_TABLE_SCHEMA, TG_TABLE_NAME) INTO most;
  reached := coalesce(pg_sequence_last_value(counter), 0);
  IF most IS NULL OR most <= reached THEN RETURN NULL; END IF;
  PERFORM pg_advisory_lock(counter::oid::bigint);
  reached := coalesce(pg_sequence_last_value(counter), 0);
  IF most > reached + 100 THEN
    PERFORM setval(counter, most);
  ELSE
    WHILE reached < most LOOP reached := nextval(counter); END LOOP;
  END IF;
  PERFORM pg_advisory_unlock(counter::oid::bigint);
  RETURN NULL;
END $$;

-- A row that gives Null for its counter draws a number like one that gives none.
CREATE OR REPLACE FUNCTION zk_counter_draws() RETURNS trigger LANGUAGE plpgsql AS $$
DECLARE counter regclass := pg_get_serial_sequence(format('%I.%I', TG_TABLE_SCHEMA, TG_TABLE_NAME), TG_ARGV[0]);
BEGIN
  RETURN jsonb_populate_record(NEW, jsonb_build_object(TG_ARGV[0], nextval(counter)));
END $$;
CREATE OR REPLACE FUNCTION zk_draw_for_null(place text, counter text) RETURNS void LANGUAGE plpgsql AS $$
BEGIN
  EXECUTE format('CREATE OR REPLACE TRIGGER zk_counter_null BEFORE INSERT ON %I FOR EACH ROW WHEN (NEW.%I IS NULL) '
                 'EXECUTE FUNCTION zk_counter_draws(%L)', place, counter, counter);
END $$;

-- Names are folded to lower case: their own spelling and the type in the dialect's words are kept as comments.
-- Each of `columns` is a name, a blank and a type.
CREATE OR REPLACE FUNCTION zk_describe(table_name text, columns text[]) RETURNS void LANGUAGE plpgsql AS $$
DECLARE c text; place text := lower(table_name); name text;
BEGIN
  EXECUTE format('COMMENT ON TABLE %I IS %L', place, table_name);
  FOREACH c IN ARRAY columns LOOP
    name := left(c, length(c) - strpos(reverse(c), ' '));
    EXECUTE format('COMMENT ON COLUMN %I.%I IS %L', place, lower(name), c);
    IF c LIKE '% COUNTER' THEN
      EXECUTE format('CREATE TRIGGER zk_counter AFTER INSERT ON %I FOR EACH STATEMENT '
                     'EXECUTE FUNCTION zk_counter_goes_on(%L)', place, lower(name));
      PERFORM zk_draw_for_null(place, lower(name));
    END IF;
  END LOOP;
END $$;

-- Tables that were made before there was the one trigger have the other.
SELECT zk_draw_for_null(c.relname, a.attname)
FROM pg_trigger t JOIN pg_class c ON c.oid = t.tgrelid
JOIN pg_attribute a ON a.attrelid = c.oid AND a.attidentity = 'd'
WHERE t.tgname = 'zk_counter' AND c.relnamespace = current_schema()::regnamespace;
