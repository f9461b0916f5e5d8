-- What the translated statements call on a PostgreSQL server. Runs inside the schema of one account set.
-- Errors of the platform travel as SQLSTATE ZKnnn.

-- Reading texts -------------------------------------------------------------------------------------------

CREATE FUNCTION zk_read_number(t text) RETURNS double precision LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE plain text := regexp_replace(t, '(?<=[0-9]),(?=[0-9])', '', 'g');
BEGIN
  IF plain ~ '^\s*[+-]?\s*([0-9]+\.?[0-9]*|\.[0-9]+)([eEdD][+-]?[0-9]+)?\s*$' THEN
    RETURN regexp_replace(translate(plain, 'dD', 'ee'), '\s', '', 'g')::double precision;
  END IF;
  RETURN NULL;
END $$;

CREATE FUNCTION zk_read_date(t text) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE p text[];
BEGIN
  p := regexp_match(t, '^\s*(\d{4})[-/.年](\d{1,2})[-/.月](\d{1,2})日?(?:[ T]+(\d{1,2}):(\d{1,2})(?::(\d{1,2}))?)?\s*$');
  IF p IS NULL THEN
    p := regexp_match(t, '^\s*(\d{1,2})[-/](\d{1,2})[-/](\d{4})(?:\s+(\d{1,2}):(\d{1,2})(?::(\d{1,2}))?)?\s*$');
    IF p IS NULL THEN RETURN NULL; END IF;
    IF p[1]::integer > 12 THEN
      p := ARRAY[p[3], p[2], p[1], p[4], p[5], p[6]];
    ELSE
      p := ARRAY[p[3], p[1], p[2], p[4], p[5], p[6]];
    END IF;
  END IF;
  RETURN make_timestamp(p[1]::integer, p[2]::integer, p[3]::integer, coalesce(p[4], '0')::integer,
                        coalesce(p[5], '0')::integer, coalesce(p[6], '0')::double precision);
EXCEPTION WHEN datetime_field_overflow THEN
  RETURN NULL;
END $$;

CREATE FUNCTION zk_val_of_text(t text) RETURNS double precision LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF t IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  RETURN coalesce(translate((regexp_match(regexp_replace(t, '[ \t\n]', '', 'g'),
    '^([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eEdD][+-]?[0-9]+)?)'))[1], 'dD', 'ee')::double precision, 0);
END $$;
-- Null for what is no whole number of at most nine digits: indexes are kept over it.
CREATE FUNCTION zk_digits(t text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t ~ '^[0-9]{1,9}$' THEN t::integer END $$;
CREATE FUNCTION zk_val(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t ~ '^[0-9]{1,9}$' THEN t::double precision ELSE zk_val_of_text(t) END $$;
CREATE FUNCTION zk_val(v double precision) RETURNS double precision LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF v IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  RETURN v;
END $$;

-- Conversions ---------------------------------------------------------------------------------------------

CREATE FUNCTION zk_cdbl(v double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_val(v) $$;
CREATE FUNCTION zk_cdbl(t text) RETURNS double precision LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE v double precision := zk_read_number(t);
BEGIN
  IF t IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  IF v IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK013'; END IF;
  RETURN v;
END $$;

-- round() of a double takes ties to the even number.
CREATE FUNCTION zk_whole(v double precision, most double precision) RETURNS bigint
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF round(v) > most OR round(v) < -most - 1 THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
  RETURN round(v)::bigint;
END $$;
CREATE FUNCTION zk_clng(v double precision) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_whole(zk_val(v), 2147483647)::integer $$;
CREATE FUNCTION zk_clng(t text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t ~ '^[0-9]{1,9}$' THEN t::integer ELSE zk_whole(zk_cdbl(t), 2147483647)::integer END $$;
CREATE FUNCTION zk_cint(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_whole(zk_val(v), 32767)::smallint $$;
CREATE FUNCTION zk_cint(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t ~ '^[0-9]{1,4}$' THEN t::smallint ELSE zk_whole(zk_cdbl(t), 32767)::smallint END $$;

-- Four decimals, ties to the even digit.
CREATE FUNCTION zk_currency(v numeric) RETURNS numeric LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE scaled numeric := v * 10000; whole numeric := round(v * 10000);
BEGIN
  IF abs(scaled - trunc(scaled)) = 0.5 AND whole % 2 <> 0 THEN whole := whole - sign(scaled); END IF;
  IF abs(whole) > 9223372036854775807 THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
  RETURN (whole / 10000)::numeric(19,4);
END $$;
CREATE FUNCTION zk_currency(v double precision) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_currency(v::numeric) $$;
CREATE FUNCTION zk_ccur(v double precision) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_currency(zk_val(v)) $$;
CREATE FUNCTION zk_ccur(t text) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_currency(zk_cdbl(t)) $$;

CREATE FUNCTION zk_text(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT t $$;
CREATE FUNCTION zk_text(v bigint) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v::text $$;
CREATE FUNCTION zk_text(v integer) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v::text $$;
CREATE FUNCTION zk_text(v smallint) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v::text $$;
CREATE FUNCTION zk_text(v numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT trim_scale(v)::text $$;
-- The cast to numeric keeps 15 significant digits.
CREATE FUNCTION zk_text(v double precision) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE n numeric := trim_scale(v::numeric);
BEGIN
  IF abs(n) < 1000000000000000 AND scale(n) <= 15 THEN RETURN n::text; END IF;
  RETURN regexp_replace(trim(to_char(v, '9.99999999999999EEEE')), '\.?0*e', 'E');
END $$;
CREATE FUNCTION zk_cstr_of_text(t text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF t IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  RETURN t;
END $$;
CREATE FUNCTION zk_cstr(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(t) $$;
CREATE FUNCTION zk_cstr(v bigint) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(v::text) $$;
CREATE FUNCTION zk_cstr(v integer) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(v::text) $$;
CREATE FUNCTION zk_cstr(v smallint) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(v::text) $$;
CREATE FUNCTION zk_cstr(v numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(zk_text(v)) $$;
CREATE FUNCTION zk_cstr(v double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cstr_of_text(zk_text(v)) $$;
CREATE FUNCTION zk_str(v double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN v < 0 THEN '' ELSE ' ' END || zk_cstr(v) $$;
CREATE FUNCTION zk_str(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zk_str(zk_cdbl(t)) $$;

CREATE FUNCTION zk_number(v double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT v $$;
CREATE FUNCTION zk_number(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN t IS NOT NULL THEN zk_cdbl(t) END $$;

-- Null where the text is neither a word for a truth value nor a number.
CREATE FUNCTION zk_boolean(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN v <> 0 THEN -1 WHEN v = 0 THEN 0 END::smallint $$;
CREATE FUNCTION zk_boolean(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN lower(trim(t)) IN ('true', '#true#') THEN (-1)::smallint
               WHEN lower(trim(t)) IN ('false', '#false#') THEN 0::smallint
               ELSE zk_boolean(zk_read_number(t)) END $$;
CREATE FUNCTION zk_cbool(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_boolean(zk_val(v)) $$;
CREATE FUNCTION zk_cbool(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT coalesce(zk_boolean(t), zk_boolean(zk_cdbl(t))) $$;

CREATE FUNCTION zk_date_of_serial(v double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT timestamp '1899-12-30' + round(v * 86400) * interval '1 second' $$;
CREATE FUNCTION zk_date(d timestamp) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT d $$;
CREATE FUNCTION zk_date(v double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_date_of_serial(v) $$;
CREATE FUNCTION zk_date(t text) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE d timestamp := zk_read_date(t);
BEGIN
  IF d IS NULL AND t IS NOT NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK013'; END IF;
  RETURN d;
END $$;
CREATE FUNCTION zk_cdate(d timestamp) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF d IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  RETURN d;
END $$;
CREATE FUNCTION zk_cdate(v double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cdate(zk_date(v)) $$;
CREATE FUNCTION zk_cdate(t text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_cdate(zk_date(t)) $$;
CREATE FUNCTION zk_datevalue(d timestamp) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT date_trunc('day', zk_cdate(d)) $$;
CREATE FUNCTION zk_datevalue(t text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT date_trunc('day', zk_cdate(t)) $$;
CREATE FUNCTION zk_datetext(d timestamp) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN d::date = date '1899-12-30' THEN to_char(d, 'FMHH24:MI:SS')
               WHEN d = date_trunc('day', d) THEN to_char(d, 'FMYYYY-FMMM-FMDD')
               ELSE to_char(d, 'FMYYYY-FMMM-FMDD FMHH24:MI:SS') END $$;
CREATE FUNCTION zk_datetext(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_datetext(zk_date(t)) $$;
CREATE FUNCTION zk_serial(d timestamp) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT extract(epoch FROM d - timestamp '1899-12-30')::double precision / 86400 $$;
CREATE FUNCTION zk_serial(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_serial(zk_date(t)) $$;
CREATE FUNCTION zk_isnumeric(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN zk_read_number(t) IS NULL THEN 0 ELSE -1 END::smallint $$;
CREATE FUNCTION zk_isnumeric(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN v IS NULL THEN 0 ELSE -1 END::smallint $$;
CREATE FUNCTION zk_isdate(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN zk_read_date(t) IS NULL THEN 0 ELSE -1 END::smallint $$;
CREATE FUNCTION zk_isdate(d timestamp) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN d IS NULL THEN 0 ELSE -1 END::smallint $$;

-- What a column stores: Null where the value does not fit.
CREATE FUNCTION zk_assign_double(v double precision) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT v $$;
CREATE FUNCTION zk_assign_double(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_read_number(t) $$;
CREATE FUNCTION zk_assign_long(v double precision) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN round(v) BETWEEN -2147483648 AND 2147483647 THEN round(v)::integer END $$;
CREATE FUNCTION zk_assign_long(t text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_assign_long(zk_read_number(t)) $$;
CREATE FUNCTION zk_assign_short(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN round(v) BETWEEN -32768 AND 32767 THEN round(v)::smallint END $$;
CREATE FUNCTION zk_assign_short(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_assign_short(zk_read_number(t)) $$;
CREATE FUNCTION zk_assign_currency(v numeric) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN abs(v) < 922337203685477.5807 THEN zk_currency(v) END $$;
CREATE FUNCTION zk_assign_currency(v double precision) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_assign_currency(v::numeric) $$;
CREATE FUNCTION zk_assign_currency(t text) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_assign_currency(zk_read_number(t)::numeric) $$;
CREATE FUNCTION zk_assign_date(d timestamp) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT d $$;
CREATE FUNCTION zk_assign_date(v double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_date_of_serial(v) $$;
CREATE FUNCTION zk_assign_date(t text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_read_date(t) $$;
CREATE FUNCTION zk_assign_boolean(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT coalesce(zk_boolean(v), 0::smallint) $$;
CREATE FUNCTION zk_assign_boolean(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT coalesce(zk_boolean(t), 0::smallint) $$;

-- Texts ---------------------------------------------------------------------------------------------------

-- A pattern of LIKE as a regular expression over letters in lower case; what cannot match is an empty class.
CREATE FUNCTION zk_regex(pattern text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE rest text := lower(pattern); result text := '^'; sign text; list text; close integer;
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
      list := left(rest, close - 1);
      rest := substr(rest, close + 1);
      IF list = '' THEN CONTINUE; END IF;
      IF left(list, 1) = '!' AND list <> '!' THEN
        result := result || '[^' || regexp_replace(substr(list, 2), '([\\^[])', '\\\1', 'g') || ']';
      ELSE
        result := result || '[' || regexp_replace(list, '([\\^[])', '\\\1', 'g') || ']';
      END IF;
    ELSE result := result || regexp_replace(sign, '([][\\^$.|?*+(){}])', '\\\1');
    END IF;
  END LOOP;
  RETURN result || '$';
END $$;
CREATE FUNCTION zk_like(pattern text, t text) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT lower(t) ~ zk_regex(pattern) $$;

CREATE FUNCTION zk_length(v double precision, lowest integer) RETURNS integer
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF v < 0 OR floor(v + 0.5) < lowest THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN least(floor(v + 0.5), 1e9)::integer;
END $$;
CREATE FUNCTION zk_left(t text, n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT left(t, zk_length(n, 0)) $$;
CREATE FUNCTION zk_right(t text, n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT right(t, zk_length(n, 0)) $$;
CREATE FUNCTION zk_mid(t text, n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT substr(t, zk_length(n, 1)) $$;
CREATE FUNCTION zk_mid(t text, n double precision, c double precision) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT substr(t, zk_length(n, 1), zk_length(c, 0)) $$;
CREATE FUNCTION zk_instr(n double precision, t text, part text) RETURNS integer
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE strpos(substr(lower(t), zk_length(n, 1)), lower(part)) WHEN 0 THEN 0
          ELSE strpos(substr(lower(t), zk_length(n, 1)), lower(part)) + zk_length(n, 1) - 1 END $$;
CREATE FUNCTION zk_instr(t text, part text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT strpos(lower(t), lower(part)) $$;
-- The function of this name over citext would replace without regard to case.
CREATE FUNCTION zk_replace(t text, old text, new text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT replace(t, old, new) $$;
CREATE FUNCTION zk_space(n double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT repeat(' ', zk_length(n, 0)) $$;
CREATE FUNCTION zk_string(n double precision, t text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF t = '' THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN repeat(left(t, 1), zk_length(n, 0));
END $$;
CREATE FUNCTION zk_asc(t text) RETURNS integer LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF t = '' THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN get_byte(convert_to(t, 'UTF8'), 0);
END $$;
CREATE FUNCTION zk_chr(n double precision) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF n < 1 OR n > 127 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN chr(n::integer);
END $$;
CREATE FUNCTION zk_strcomp(a text, b text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN lower(a) < lower(b) THEN -1 WHEN lower(a) > lower(b) THEN 1 WHEN a IS NOT NULL
               AND b IS NOT NULL THEN 0 END::smallint $$;
CREATE FUNCTION zk_strcomp(a text, b text, kind double precision) RETURNS smallint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT zk_strcomp(a, b) $$;

-- Pictures of digits, points and thousands separators; another one is error 3251.
CREATE FUNCTION zk_format(v double precision, picture text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE whole text := split_part(picture, '.', 1); part text := split_part(picture, '.', 2); shape text; result text;
BEGIN
  IF v IS NULL THEN RETURN ''; END IF;
  IF picture !~ '^[#,0]*(\.[0#]*)?$' OR picture = '' THEN
    RAISE EXCEPTION USING ERRCODE = 'ZK001', MESSAGE = picture;
  END IF;
  shape := repeat('9', greatest(15 - length(replace(whole, ',', '')), 0)) || translate(replace(whole, ',', ''), '#', '9');
  IF whole LIKE '%,%' THEN shape := regexp_replace(shape, '(?<=.)(?=(?:...)+$)', ',', 'g'); END IF;
  result := to_char(round(v::numeric, length(part)), 'FM' || shape || CASE WHEN picture LIKE '%.%' THEN '.' ELSE '' END
                    || translate(part, '#', '9'));
  RETURN result;
END $$;
CREATE FUNCTION zk_format(t text, picture text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN zk_read_number(t) IS NULL THEN coalesce(t, '') ELSE zk_format(zk_read_number(t), picture) END $$;
CREATE FUNCTION zk_format_date(d timestamp, picture text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE shape text := lower(picture);
BEGIN
  IF d IS NULL THEN RETURN ''; END IF;
  shape := replace(replace(replace(shape, 'yyyy', '<Y>'), 'hh', '<H>'), 'nn', '<N>');
  shape := replace(replace(shape, 'ss', '<S>'), '<H>:mm', '<H>:<N>');
  shape := replace(replace(replace(replace(shape, 'mm', '<M>'), 'dd', '<D>'), 'm', '<m>'), 'd', '<d>');
  shape := replace(replace(shape, '<Y>', to_char(d, 'YYYY')), '<H>', to_char(d, 'HH24'));
  shape := replace(replace(shape, '<N>', to_char(d, 'MI')), '<S>', to_char(d, 'SS'));
  shape := replace(replace(shape, '<M>', to_char(d, 'MM')), '<D>', to_char(d, 'DD'));
  RETURN replace(replace(shape, '<m>', to_char(d, 'FMMM')), '<d>', to_char(d, 'FMDD'));
END $$;

-- Dates ---------------------------------------------------------------------------------------------------

CREATE FUNCTION zk_datepart(i text, d timestamp) RETURNS smallint LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  RETURN CASE lower(i)
    WHEN 'yyyy' THEN extract(year FROM d) WHEN 'q' THEN extract(quarter FROM d) WHEN 'm' THEN extract(month FROM d)
    WHEN 'd' THEN extract(day FROM d) WHEN 'y' THEN extract(doy FROM d) WHEN 'w' THEN extract(dow FROM d) + 1
    WHEN 'ww' THEN ceil((extract(doy FROM d) + extract(dow FROM date_trunc('year', d))) / 7)
    WHEN 'h' THEN extract(hour FROM d) WHEN 'n' THEN extract(minute FROM d) WHEN 's' THEN extract(second FROM d)
  END;
EXCEPTION WHEN case_not_found THEN
  RAISE EXCEPTION USING ERRCODE = 'ZK005';
END $$;
CREATE FUNCTION zk_datepart(i text, t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_datepart(i, zk_date(t)) $$;
DO $$
DECLARE f text[];
BEGIN
  FOREACH f SLICE 1 IN ARRAY ARRAY[['year', 'yyyy'], ['month', 'm'], ['day', 'd'], ['hour', 'h'], ['minute', 'n'],
                                   ['second', 's'], ['weekday', 'w']] LOOP
    EXECUTE format('CREATE FUNCTION zk_%s(d timestamp) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS '
                   '$f$ SELECT zk_datepart(%L, d) $f$', f[1], f[2]);
    EXECUTE format('CREATE FUNCTION zk_%s(t text) RETURNS smallint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS '
                   '$f$ SELECT zk_datepart(%L, zk_date(t)) $f$', f[1], f[2]);
  END LOOP;
END $$;
CREATE FUNCTION zk_now() RETURNS timestamp LANGUAGE sql STABLE AS $$ SELECT date_trunc('second', localtimestamp) $$;
CREATE FUNCTION zk_today() RETURNS timestamp LANGUAGE sql STABLE AS $$ SELECT date_trunc('day', localtimestamp) $$;
CREATE FUNCTION zk_time() RETURNS timestamp LANGUAGE sql STABLE AS
$$ SELECT timestamp '1899-12-30' + (date_trunc('second', localtimestamp) - date_trunc('day', localtimestamp)) $$;
CREATE FUNCTION zk_dateadd(i text, n double precision, d timestamp) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE c integer := round(n);
BEGIN
  CASE lower(i)
    WHEN 'yyyy' THEN RETURN d + make_interval(years => c);
    WHEN 'q' THEN RETURN d + make_interval(months => 3 * c);
    WHEN 'm' THEN RETURN d + make_interval(months => c);
    WHEN 'd', 'y', 'w' THEN RETURN d + make_interval(days => c);
    WHEN 'ww' THEN RETURN d + make_interval(days => 7 * c);
    WHEN 'h' THEN RETURN d + make_interval(hours => c);
    WHEN 'n' THEN RETURN d + make_interval(mins => c);
    WHEN 's' THEN RETURN d + make_interval(secs => c);
  END CASE;
EXCEPTION WHEN case_not_found THEN
  RAISE EXCEPTION USING ERRCODE = 'ZK005';
END $$;
CREATE FUNCTION zk_dateadd(i text, n double precision, t text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_dateadd(i, n, zk_date(t)) $$;
CREATE FUNCTION zk_datediff(i text, a timestamp, b timestamp) RETURNS integer
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE months integer := (extract(year FROM b) - extract(year FROM a)) * 12 + extract(month FROM b) - extract(month FROM a);
        days integer := b::date - a::date;
BEGIN
  CASE lower(i)
    WHEN 'yyyy' THEN RETURN extract(year FROM b) - extract(year FROM a);
    WHEN 'q' THEN RETURN (extract(year FROM b) - extract(year FROM a)) * 4 + extract(quarter FROM b) - extract(quarter FROM a);
    WHEN 'm' THEN RETURN months;
    WHEN 'd', 'y' THEN RETURN days;
    WHEN 'w' THEN RETURN days / 7;
    WHEN 'ww' THEN RETURN (days + extract(dow FROM a) - extract(dow FROM b)) / 7;
    WHEN 'h' THEN RETURN extract(epoch FROM date_trunc('hour', b) - date_trunc('hour', a)) / 3600;
    WHEN 'n' THEN RETURN extract(epoch FROM date_trunc('minute', b) - date_trunc('minute', a)) / 60;
    WHEN 's' THEN RETURN extract(epoch FROM b - a);
  END CASE;
EXCEPTION WHEN case_not_found THEN
  RAISE EXCEPTION USING ERRCODE = 'ZK005';
END $$;
CREATE FUNCTION zk_datediff(i text, a text, b timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_datediff(i, zk_date(a), b) $$;
CREATE FUNCTION zk_datediff(i text, a timestamp, b text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_datediff(i, a, zk_date(b)) $$;
CREATE FUNCTION zk_datediff(i text, a text, b text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_datediff(i, zk_date(a), zk_date(b)) $$;
CREATE FUNCTION zk_dateserial(y double precision, m double precision, d double precision) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT make_timestamp(round(y)::integer, 1, 1, 0, 0, 0) + make_interval(months => round(m)::integer - 1)
          + make_interval(days => round(d)::integer - 1) $$;

-- Numbers -------------------------------------------------------------------------------------------------

CREATE FUNCTION zk_divide(a double precision, b double precision) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF b <> 0 THEN RETURN a / b; END IF;
  IF a = 0 THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
  RAISE EXCEPTION USING ERRCODE = 'ZK011';
END $$;
CREATE FUNCTION zk_divisor(b double precision) RETURNS integer LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF zk_clng(b) = 0 THEN RAISE EXCEPTION USING ERRCODE = 'ZK011'; END IF;
  RETURN zk_clng(b);
END $$;
CREATE FUNCTION zk_integer_divide(a double precision, b double precision) RETURNS bigint
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT zk_clng(a)::bigint / zk_divisor(b) $$;
CREATE FUNCTION zk_modulo(a double precision, b double precision) RETURNS bigint
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT zk_clng(a)::bigint % zk_divisor(b) $$;
CREATE FUNCTION zk_power(a double precision, b double precision) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  RETURN power(a, b);
EXCEPTION
  WHEN invalid_argument_for_power_function THEN RAISE EXCEPTION USING ERRCODE = 'ZK005';
END $$;
CREATE FUNCTION zk_int(v double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT floor(v) $$;
CREATE FUNCTION zk_fix(v double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT trunc(v) $$;
CREATE FUNCTION zk_round(v double precision, places double precision) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF places < 0 OR places > 15 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN round(v * power(10::double precision, round(places))) / power(10::double precision, round(places));
END $$;
CREATE FUNCTION zk_round(v double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT round(v) $$;
CREATE FUNCTION zk_sgn(v double precision) RETURNS smallint LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF v IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  RETURN sign(v);
END $$;
CREATE FUNCTION zk_sqr(v double precision) RETURNS double precision LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF v < 0 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN sqrt(v);
END $$;

-- Tables --------------------------------------------------------------------------------------------------

-- A counter goes on behind the greatest number that its table holds.
CREATE FUNCTION zk_counter_goes_on() RETURNS trigger LANGUAGE plpgsql AS $$
DECLARE counter text := pg_get_serial_sequence(format('%I.%I', TG_TABLE_SCHEMA, TG_TABLE_NAME), TG_ARGV[0]);
BEGIN
  EXECUTE format('SELECT setval(%L, most) FROM (SELECT max(%I) AS most FROM %I.%I) AS given, %s '
                 'WHERE most > last_value OR (most = last_value AND NOT is_called)',
                 counter, TG_ARGV[0], TG_TABLE_SCHEMA, TG_TABLE_NAME, counter);
  RETURN NULL;
END $$;

-- Names are folded to lower case: their own spelling and the type in the dialect's words are kept as comments.
-- Each of `columns` is a name, a blank and a type.
CREATE FUNCTION zk_describe(table_name text, columns text[]) RETURNS void LANGUAGE plpgsql AS $$
DECLARE c text; place text := lower(table_name); name text;
BEGIN
  EXECUTE format('COMMENT ON TABLE %I IS %L', place, table_name);
  FOREACH c IN ARRAY columns LOOP
    name := left(c, length(c) - strpos(reverse(c), ' '));
    EXECUTE format('COMMENT ON COLUMN %I.%I IS %L', place, lower(name), c);
    IF c LIKE '% COUNTER' THEN
      EXECUTE format('CREATE TRIGGER zk_counter AFTER INSERT ON %I FOR EACH STATEMENT '
                     'EXECUTE FUNCTION zk_counter_goes_on(%L)', place, lower(name));
    END IF;
  END LOOP;
END $$;
