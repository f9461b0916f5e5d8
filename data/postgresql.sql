-- What the translated statements call on a PostgreSQL server, together with postgresql-reading.sql and
-- postgresql-format.sql. Runs inside the schema of one account set, again where the functions there are of an older
-- version. Errors of the platform travel as SQLSTATE ZKnnn. Functions that parallel workers may run catch nothing.

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

CREATE OR REPLACE FUNCTION zk_cdbl(v double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_val(v) $$;
CREATE OR REPLACE FUNCTION zk_cdbl(t text) RETURNS double precision LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE v double precision := zk_read_number(t);
BEGIN
  IF t IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  IF v IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK013'; END IF;
  RETURN v;
END $$;

-- round() of a double takes ties to the even number.
CREATE OR REPLACE FUNCTION zk_whole(v double precision, most double precision) RETURNS bigint
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF round(v) > most OR round(v) < -most - 1 THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
  RETURN round(v)::bigint;
END $$;
CREATE OR REPLACE FUNCTION zk_clng(v double precision) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_whole(zk_val(v), 2147483647)::integer $$;
CREATE OR REPLACE FUNCTION zk_clng(t text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t ~ '^[0-9]+$' AND length(t) <= 9 THEN t::integer ELSE zk_whole(zk_cdbl(t), 2147483647)::integer END $$;
CREATE OR REPLACE FUNCTION zk_cint(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_whole(zk_val(v), 32767)::smallint $$;
CREATE OR REPLACE FUNCTION zk_cint(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t ~ '^[0-9]+$' AND length(t) <= 4 THEN t::smallint ELSE zk_whole(zk_cdbl(t), 32767)::smallint END $$;

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
CREATE OR REPLACE FUNCTION zk_ccur(v double precision) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_currency(zk_val(v)) $$;
-- All digits of a text count, not only those that a double holds.
CREATE OR REPLACE FUNCTION zk_ccur(t text) RETURNS numeric LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  RETURN zk_currency(CASE WHEN zk_cdbl(t) IS NOT NULL THEN zk_read_numeric(t) END);
END $$;

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
CREATE OR REPLACE FUNCTION zk_cstr_of_text(t text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF t IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  RETURN t;
END $$;
CREATE OR REPLACE FUNCTION zk_cstr(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(t) $$;
CREATE OR REPLACE FUNCTION zk_cstr(v bigint) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(v::text) $$;
CREATE OR REPLACE FUNCTION zk_cstr(v integer) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(v::text) $$;
CREATE OR REPLACE FUNCTION zk_cstr(v smallint) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(v::text) $$;
CREATE OR REPLACE FUNCTION zk_cstr(v numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(zk_text(v)) $$;
CREATE OR REPLACE FUNCTION zk_cstr(v double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(zk_text(v)) $$;
CREATE OR REPLACE FUNCTION zk_str(v double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN v < 0 THEN '' ELSE ' ' END || zk_cstr(v) $$;
CREATE OR REPLACE FUNCTION zk_str(t text) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zk_str(zk_cdbl(t)) $$;

CREATE OR REPLACE FUNCTION zk_number(v double precision) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT v $$;
CREATE OR REPLACE FUNCTION zk_number(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t IS NOT NULL THEN zk_cdbl(t) END $$;

-- Null where the text is neither a word for a truth value nor a number.
CREATE OR REPLACE FUNCTION zk_boolean(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN v <> 0 THEN -1 WHEN v = 0 THEN 0 END::smallint $$;
CREATE OR REPLACE FUNCTION zk_boolean(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN lower(trim(t)) IN ('true', '#true#') THEN (-1)::smallint
               WHEN lower(trim(t)) IN ('false', '#false#') THEN 0::smallint
               ELSE zk_boolean(zk_fitting_number(t)) END $$;
CREATE OR REPLACE FUNCTION zk_cbool(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_boolean(zk_val(v)) $$;
CREATE OR REPLACE FUNCTION zk_cbool(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT coalesce(zk_boolean(t), zk_boolean(zk_cdbl(t))) $$;

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
CREATE OR REPLACE FUNCTION zk_cdate(d timestamp) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF d IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  RETURN d;
END $$;
CREATE OR REPLACE FUNCTION zk_cdate(v double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cdate(zk_date(v)) $$;
CREATE OR REPLACE FUNCTION zk_cdate(t text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cdate(zk_date(t)) $$;
CREATE OR REPLACE FUNCTION zk_datevalue(d timestamp) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT date_trunc('day', zk_cdate(d)) $$;
CREATE OR REPLACE FUNCTION zk_datevalue(t text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT date_trunc('day', zk_cdate(t)) $$;
CREATE OR REPLACE FUNCTION zk_datevalue(v double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT date_trunc('day', zk_cdate(v)) $$;
CREATE OR REPLACE FUNCTION zk_datetext(d timestamp) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN d::date = date '1899-12-30' THEN to_char(d, 'FMHH24:MI:SS')
               WHEN d = date_trunc('day', d) THEN to_char(d, 'FMYYYY-FMMM-FMDD')
               ELSE to_char(d, 'FMYYYY-FMMM-FMDD FMHH24:MI:SS') END $$;
CREATE OR REPLACE FUNCTION zk_serial(d timestamp) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT (d::date - date '1899-12-30') + sign((d::date - date '1899-12-30') + 0.5)
          * extract(epoch FROM d::time)::double precision / 86400 $$;
CREATE OR REPLACE FUNCTION zk_isnumeric(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN zk_fitting_number(t) IS NULL THEN 0 ELSE -1 END::smallint $$;
CREATE OR REPLACE FUNCTION zk_isnumeric(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN v IS NULL THEN 0 ELSE -1 END::smallint $$;
CREATE OR REPLACE FUNCTION zk_isnumeric(d timestamp) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT 0::smallint $$;
CREATE OR REPLACE FUNCTION zk_isdate(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT 0::smallint $$;
CREATE OR REPLACE FUNCTION zk_isdate(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN zk_read_date(t) IS NULL THEN 0 ELSE -1 END::smallint $$;
CREATE OR REPLACE FUNCTION zk_isdate(d timestamp) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN d IS NULL THEN 0 ELSE -1 END::smallint $$;

-- What a column stores: Null where the value does not fit.
CREATE OR REPLACE FUNCTION zk_assign_double(v double precision) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v $$;
CREATE OR REPLACE FUNCTION zk_assign_double(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_fitting_number(t) $$;
CREATE OR REPLACE FUNCTION zk_assign_long(v double precision) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN round(v) BETWEEN -2147483648 AND 2147483647 THEN round(v)::integer END $$;
CREATE OR REPLACE FUNCTION zk_assign_long(t text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_assign_long(zk_fitting_number(t)) $$;
CREATE OR REPLACE FUNCTION zk_assign_short(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN round(v) BETWEEN -32768 AND 32767 THEN round(v)::smallint END $$;
CREATE OR REPLACE FUNCTION zk_assign_short(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_assign_short(zk_fitting_number(t)) $$;
CREATE OR REPLACE FUNCTION zk_assign_currency(v numeric) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN abs(v) < 922337203685477.58075 THEN zk_currency(v) END $$;
CREATE OR REPLACE FUNCTION zk_assign_currency(v double precision) RETURNS numeric
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_assign_currency(v::numeric) $$;
CREATE OR REPLACE FUNCTION zk_assign_currency(t text) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_assign_currency(zk_fitting_number(t)) $$;
CREATE OR REPLACE FUNCTION zk_assign_date(d timestamp) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT d $$;
CREATE OR REPLACE FUNCTION zk_assign_date(v double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN zk_is_serial(v) THEN zk_date_of_serial(v) END $$;
CREATE OR REPLACE FUNCTION zk_assign_date(t text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_read_date(t) $$;
CREATE OR REPLACE FUNCTION zk_assign_boolean(v double precision) RETURNS smallint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT coalesce(zk_boolean(v), 0::smallint) $$;
CREATE OR REPLACE FUNCTION zk_assign_boolean(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT coalesce(zk_boolean(t), 0::smallint) $$;

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
  IF v < 0 OR floor(v + 0.5) < lowest THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN least(floor(v + 0.5), 1e9)::integer;
END $$;
CREATE OR REPLACE FUNCTION zk_left(t text, n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT left(t, zk_length(n, 0)) $$;
CREATE OR REPLACE FUNCTION zk_right(t text, n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT right(t, zk_length(n, 0)) $$;
CREATE OR REPLACE FUNCTION zk_mid(t text, n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT substr(t, zk_length(n, 1)) $$;
CREATE OR REPLACE FUNCTION zk_mid(t text, n double precision, c double precision) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT substr(t, zk_length(n, 1), zk_length(c, 0)) $$;
CREATE OR REPLACE FUNCTION zk_instr(n double precision, t text, part text) RETURNS integer
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN n IS NULL OR t IS NULL OR part IS NULL THEN NULL
               WHEN zk_length(n, 1) > greatest(length(t), 1) OR strpos(lower(substr(t, zk_length(n, 1))), lower(part)) = 0
               THEN 0 ELSE strpos(lower(substr(t, zk_length(n, 1))), lower(part)) + zk_length(n, 1) - 1 END $$;
CREATE OR REPLACE FUNCTION zk_instr(t text, part text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT strpos(lower(t), lower(part)) $$;
-- The function of this name over citext would replace without regard to case.
CREATE OR REPLACE FUNCTION zk_replace(t text, old text, new text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT replace(t, old, new) $$;
CREATE OR REPLACE FUNCTION zk_space(n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT repeat(' ', zk_length(n, 0)) $$;
CREATE OR REPLACE FUNCTION zk_string(n double precision, t text) RETURNS text
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF t = '' THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN repeat(left(t, 1), zk_length(n, 0));
END $$;
CREATE OR REPLACE FUNCTION zk_asc(t text) RETURNS integer LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF t = '' THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN get_byte(convert_to(t, 'UTF8'), 0);
END $$;
CREATE OR REPLACE FUNCTION zk_chr(n double precision) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF n < 1 OR n > 127 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN chr(trunc(n)::integer);
END $$;
CREATE OR REPLACE FUNCTION zk_strcomp(a text, b text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN lower(a) < lower(b) THEN -1 WHEN lower(a) > lower(b) THEN 1 WHEN a IS NOT NULL
               AND b IS NOT NULL THEN 0 END::smallint $$;
CREATE OR REPLACE FUNCTION zk_strcomp(a text, b text, kind double precision) RETURNS smallint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zk_strcomp(a, b) $$;

-- Dates ---------------------------------------------------------------------------------------------------

CREATE OR REPLACE FUNCTION zk_datepart(i text, d timestamp) RETURNS smallint
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  RETURN CASE lower(i)
    WHEN 'yyyy' THEN extract(year FROM d) WHEN 'q' THEN extract(quarter FROM d) WHEN 'm' THEN extract(month FROM d)
    WHEN 'd' THEN extract(day FROM d) WHEN 'y' THEN extract(doy FROM d) WHEN 'w' THEN extract(dow FROM d) + 1
    WHEN 'ww' THEN ceil((extract(doy FROM d) + extract(dow FROM date_trunc('year', d))) / 7)
    WHEN 'h' THEN extract(hour FROM d) WHEN 'n' THEN extract(minute FROM d) WHEN 's' THEN extract(second FROM d)
    ELSE zk_fail('ZK005') END;
END $$;
DO $$
DECLARE f text[];
BEGIN
  FOREACH f SLICE 1 IN ARRAY ARRAY[['year', 'year'], ['month', 'month'], ['day', 'day'], ['hour', 'hour'],
                                   ['minute', 'minute'], ['second', 'second'], ['weekday', 'dow']] LOOP
    EXECUTE format('CREATE OR REPLACE FUNCTION zk_%s(d timestamp) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS '
                   '$f$ SELECT (extract(%s FROM d) + %s)::smallint $f$', f[1], f[2], (f[2] = 'dow')::integer);
  END LOOP;
END $$;
CREATE OR REPLACE FUNCTION zk_now() RETURNS timestamp
LANGUAGE sql STABLE AS $$ SELECT date_trunc('second', localtimestamp) $$;
CREATE OR REPLACE FUNCTION zk_today() RETURNS timestamp
LANGUAGE sql STABLE AS $$ SELECT date_trunc('day', localtimestamp) $$;
CREATE OR REPLACE FUNCTION zk_time() RETURNS timestamp LANGUAGE sql STABLE AS
$$ SELECT timestamp '1899-12-30' + (date_trunc('second', localtimestamp) - date_trunc('day', localtimestamp)) $$;
-- Nothing leaves the years 100 to 9999.
CREATE OR REPLACE FUNCTION zk_dateadd(i text, n double precision, d timestamp) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE months integer := CASE lower(i) WHEN 'yyyy' THEN 12 WHEN 'q' THEN 3 WHEN 'm' THEN 1 END;
        seconds bigint := CASE lower(i) WHEN 'd' THEN 86400 WHEN 'y' THEN 86400 WHEN 'w' THEN 86400 WHEN 'ww' THEN 604800
                                        WHEN 'h' THEN 3600 WHEN 'n' THEN 60 WHEN 's' THEN 1 END;
        target numeric;
BEGIN
  IF months IS NULL AND seconds IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK013'; END IF;
  IF months IS NOT NULL THEN
    target := extract(year FROM d) * 12 + extract(month FROM d) - 1 + months * round(n)::numeric;
    IF target NOT BETWEEN 1200 AND 119999 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
    RETURN d + make_interval(months => months * round(n)::integer);
  END IF;
  target := extract(epoch FROM d) + seconds * round(n)::numeric;
  IF target NOT BETWEEN extract(epoch FROM timestamp '0100-01-01')
                    AND extract(epoch FROM timestamp '9999-12-31 23:59:59') THEN
    RAISE EXCEPTION USING ERRCODE = 'ZK005';
  END IF;
  RETURN timestamp 'epoch' + target::bigint * interval '1 second';
END $$;
CREATE OR REPLACE FUNCTION zk_datediff(i text, a timestamp, b timestamp) RETURNS bigint
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE days integer := b::date - a::date;
BEGIN
  RETURN CASE lower(i)
    WHEN 'yyyy' THEN extract(year FROM b) - extract(year FROM a)
    WHEN 'q' THEN (extract(year FROM b) - extract(year FROM a)) * 4 + extract(quarter FROM b) - extract(quarter FROM a)
    WHEN 'm' THEN (extract(year FROM b) - extract(year FROM a)) * 12 + extract(month FROM b) - extract(month FROM a)
    WHEN 'd' THEN days WHEN 'y' THEN days WHEN 'w' THEN trunc(days / 7)
    WHEN 'ww' THEN (days + extract(dow FROM a) - extract(dow FROM b)) / 7
    WHEN 'h' THEN floor(extract(epoch FROM b) / 3600) - floor(extract(epoch FROM a) / 3600)
    WHEN 'n' THEN floor(extract(epoch FROM b) / 60) - floor(extract(epoch FROM a) / 60)
    WHEN 's' THEN extract(epoch FROM b) - extract(epoch FROM a)
    ELSE zk_fail('ZK013') END;
END $$;
CREATE OR REPLACE FUNCTION zk_dateserial(y double precision, m double precision, d double precision) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF round(y) NOT BETWEEN 100 AND 9999 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN zk_dateadd('d', round(d) - 1, zk_dateadd('m', round(m) - 1, make_timestamp(round(y)::integer, 1, 1, 0, 0, 0)));
END $$;

-- Numbers -------------------------------------------------------------------------------------------------

CREATE OR REPLACE FUNCTION zk_divide(a double precision, b double precision) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF b <> 0 THEN RETURN a / b; END IF;
  IF a = 0 THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
  RAISE EXCEPTION USING ERRCODE = 'ZK011';
END $$;
CREATE OR REPLACE FUNCTION zk_divisor(b double precision) RETURNS integer
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF zk_clng(b) = 0 THEN RAISE EXCEPTION USING ERRCODE = 'ZK011'; END IF;
  RETURN zk_clng(b);
END $$;
CREATE OR REPLACE FUNCTION zk_integer_divide(a double precision, b double precision) RETURNS bigint
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT zk_clng(a)::bigint / zk_divisor(b) $$;
CREATE OR REPLACE FUNCTION zk_modulo(a double precision, b double precision) RETURNS bigint
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT zk_clng(a)::bigint % zk_divisor(b) $$;
-- What is too small to tell from nothing is nothing.
CREATE OR REPLACE FUNCTION zk_power(a double precision, b double precision) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF a < 0 AND b <> trunc(b) THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  IF a = 0 THEN
    IF b < 0 THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
    RETURN CASE WHEN b = 0 THEN 1 ELSE 0 END;
  END IF;
  RETURN CASE WHEN b * ln(abs(a)) < -745.13 THEN 0 ELSE power(a, b) END;
END $$;
CREATE OR REPLACE FUNCTION zk_int(v double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT floor(v) $$;
CREATE OR REPLACE FUNCTION zk_fix(v double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT trunc(v) $$;
CREATE OR REPLACE FUNCTION zk_round(v double precision, places double precision) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF places < 0 OR places > 15 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN round(v * power(10::double precision, round(places))) / power(10::double precision, round(places));
END $$;
CREATE OR REPLACE FUNCTION zk_round(v double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT round(v) $$;
CREATE OR REPLACE FUNCTION zk_sgn(v double precision) RETURNS smallint LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF v IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  RETURN sign(v);
END $$;
CREATE OR REPLACE FUNCTION zk_sqr(v double precision) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF v < 0 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN sqrt(v);
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

-- The version of these functions, as the program asks for it.
COMMENT ON FUNCTION zk_describe(text, text[]) IS '3';
