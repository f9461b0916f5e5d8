-- Texts read as numbers and dates, the way the platform's own conversions read them. What a text is not gives
-- Null; nothing here catches an exception, since that costs a transaction of its own and no parallel worker may.

-- Numbers -------------------------------------------------------------------------------------------------

-- &H1F, &O17: up to 16 bits a number of 16 bits, so that &HFFFF is -1, unless it is said to be `long`.
CREATE OR REPLACE FUNCTION zk_radix(t text, long boolean) RETURNS integer
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE base integer := CASE lower(substr(t, 2, 1)) WHEN 'h' THEN 16 ELSE 8 END; bits bigint := 0; digit text;
BEGIN
  FOREACH digit IN ARRAY regexp_split_to_array(lower(substr(t, 3)), '') LOOP
    bits := bits * base + strpos('0123456789abcdef', digit) - 1;
    IF bits > 4294967295 THEN RETURN NULL; END IF;
  END LOOP;
  IF bits > 2147483647 THEN RETURN bits - 4294967296; END IF;
  IF bits > 32767 AND bits < 65536 AND NOT long THEN RETURN bits - 65536; END IF;
  RETURN bits;
END $$;

-- 1,234.5E3. An exponent beyond four digits leaves the range of any double, upwards or down to nothing.
CREATE OR REPLACE FUNCTION zk_numeral(digits text) RETURNS numeric LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE plain text := translate(lower(digits), 'd,', 'e'); power text := split_part(plain, 'e', 2);
BEGIN
  IF length(ltrim(power, '+-0')) <= 4 THEN RETURN plain::numeric; END IF;
  IF power LIKE '-%' OR split_part(plain, 'e', 1)::numeric = 0 THEN RETURN 0; END IF;
  RETURN 1e400;
END $$;

-- Blanks, one sign before or behind, parentheses for a negative number, the yuan sign, thousands separators.
CREATE OR REPLACE FUNCTION zk_read_numeric(t text) RETURNS numeric LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE p text[]; around text; v numeric;
BEGIN
  p := regexp_match(t, '^([ \t\n\r+(￥¥-]*)(&[hH][0-9a-fA-F]+|&[oO][0-7]+|'
                       '(?:[0-9][0-9,]*\.?[0-9]*|\.[0-9]+)(?:[eEdD][+-]?[0-9]+)?)([ \t\n\r+)-]*)$');
  around := translate(p[1] || '#' || p[3], E' \t\n\r', '');
  IF around IS NULL OR around !~ '^(([+-]?[￥¥]?|[￥¥][+-])#|[￥¥]?#[+-]|(\([￥¥]?|[￥¥]\()#\))$' THEN
    RETURN NULL;
  END IF;
  v := CASE WHEN p[2] LIKE '&%' THEN zk_radix(p[2], false) ELSE zk_numeral(p[2]) END;
  RETURN CASE WHEN around ~ '[-(]' THEN -v ELSE v END;
END $$;

CREATE OR REPLACE FUNCTION zk_double_fits(v numeric) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT abs(v) < 1.79769313486231581e308 $$;
-- What is too small to tell from nothing is nothing.
CREATE OR REPLACE FUNCTION zk_double(v numeric) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
  IF NOT zk_double_fits(v) THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
  RETURN CASE WHEN abs(v) < 2.5e-324 THEN 0 ELSE v::double precision END;
END $$;

CREATE OR REPLACE FUNCTION zk_is_plain_number(t text) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT t ~ '^[+-]?[0-9]{1,15}(\.[0-9]{0,15})?$' $$;
CREATE OR REPLACE FUNCTION zk_read_number(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN zk_is_plain_number(t) THEN t::double precision ELSE zk_double(zk_read_numeric(t)) END $$;
-- Null also beyond the range of a double.
CREATE OR REPLACE FUNCTION zk_fitting_number(t text) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN zk_is_plain_number(t) THEN t::double precision
               WHEN zk_double_fits(zk_read_numeric(t)) THEN zk_double(zk_read_numeric(t)) END $$;

-- The longest number that a text begins with, blanks anywhere; else 0.
CREATE OR REPLACE FUNCTION zk_val_of_text(t text) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE p text[]; v double precision;
BEGIN
  IF t IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK094'; END IF;
  p := regexp_match(translate(t, E' \t\n\r', ''), '^([+-]?)(&[hH][0-9a-fA-F]+&?|&[oO][0-7]+&?|'
                    '(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eEdD][+-]?[0-9]+)?)');
  v := CASE WHEN p[2] LIKE '&%' THEN zk_radix(rtrim(p[2], '&'), p[2] LIKE '%&') ELSE zk_double(zk_numeral(p[2])) END;
  RETURN coalesce(CASE WHEN p[1] = '-' AND v <> 0 THEN -v ELSE v END, 0);
END $$;

-- Dates ---------------------------------------------------------------------------------------------------

CREATE OR REPLACE FUNCTION zk_moment(y integer, m integer, d integer, h integer, n integer, s integer) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
  IF (y BETWEEN 100 AND 9999 AND m BETWEEN 1 AND 12 AND d BETWEEN 1 AND 31 AND h BETWEEN 0 AND 23
      AND n BETWEEN 0 AND 59 AND s BETWEEN 0 AND 59) IS NOT TRUE THEN RETURN NULL; END IF;
  IF d > 28 AND d > extract(day FROM make_date(y, m, 1) + interval '1 month - 1 day') THEN RETURN NULL; END IF;
  RETURN make_timestamp(y, m, d, h, n, s);
END $$;

-- A date's pieces as one letter each: 9 a number, m a month's name, s a separator, a and p the half of the day,
-- Y M D H N S the marks behind a number. Null where something is no part of a date.
CREATE OR REPLACE FUNCTION zk_date_pieces(t text, OUT kinds text, OUT numbers integer[], OUT digits integer[], OUT separator text)
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE months constant text[] := ARRAY['january', 'february', 'march', 'april', 'may', 'june', 'july', 'august',
                                        'september', 'october', 'november', 'december'];
        piece text; kind text; month integer;
BEGIN
  IF t !~ '^([ \t]|[0-9]{1,4}(?![0-9])|[A-Za-z]+|[-/.,:年月日号时点分秒]|上午|下午)+$' THEN RETURN; END IF;
  kinds := ''; numbers := '{}'; digits := '{}'; separator := '';
  FOR piece IN SELECT lower(m[1]) FROM regexp_matches(t,
      '([0-9]+|[A-Za-z]+|[-/.,:年月日号时点分秒]|上午|下午)', 'g') m LOOP
    month := (strpos('jan feb mar apr may jun jul aug sep oct nov dec', left(piece, 3)) + 3) / 4;
    kind := CASE WHEN piece ~ '^[0-9]' THEN '9' WHEN piece ~ '^[-/.,]$' THEN 's'
                 WHEN piece IN ('am', '上午') THEN 'a' WHEN piece IN ('pm', '下午') THEN 'p'
                 WHEN length(piece) = 1 THEN substr(':YMDDHHNS', strpos(':年月日号时点分秒', piece), 1)
                 WHEN length(piece) >= 3 AND months[month] LIKE piece || '%' THEN 'm' ELSE '' END;
    IF kind IN ('', ' ') THEN kinds := NULL; RETURN; END IF;
    IF kind = 's' THEN separator := piece; END IF;
    kinds := kinds || kind;
    numbers := numbers || CASE kind WHEN '9' THEN piece::integer WHEN 'm' THEN month END;
    digits := digits || CASE kind WHEN '9' THEN length(piece) ELSE 0 END;
  END LOOP;
  IF length(kinds) > 17 THEN kinds := NULL; END IF;
END $$;

-- Up to three parts of a date: which of them is the year, the month and the day is told by marks behind them, by a
-- month's name, or by the first order in which they make a date.
CREATE OR REPLACE FUNCTION zk_date_of_parts(parts integer[], digits integer[], roles text, marked boolean, separator text,
                                 h integer, n integer, s integer) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE years integer[]; place integer := strpos(roles, 'M'); a integer; b integer;
BEGIN
  FOR i IN 1 .. length(roles) LOOP
    years[i] := parts[i] + CASE WHEN digits[i] > 2 THEN 0 WHEN parts[i] < 30 THEN 2000 ELSE 1900 END;
  END LOOP;
  IF marked THEN
    IF roles !~ '^[^Y]*Y[^Y]*$' OR roles !~ '^[^M]*M[^M]*$' THEN RETURN NULL; END IF;
    a := strpos(translate(roles, '?', 'D'), 'D');
    RETURN zk_moment(years[strpos(roles, 'Y')], parts[place], CASE WHEN a = 0 THEN 1 ELSE parts[a] END, h, n, s);
  END IF;
  IF place > 0 AND length(roles) = 2 THEN
    a := 3 - place;
    RETURN CASE WHEN digits[a] > 2 OR parts[a] > 31 THEN zk_moment(years[a], parts[place], 1, h, n, s) END;
  ELSIF place > 0 AND length(roles) = 3 THEN
    a := CASE place WHEN 1 THEN 2 ELSE 1 END;
    b := CASE place WHEN 3 THEN 2 ELSE 3 END;
    RETURN coalesce(zk_moment(years[b], parts[place], parts[a], h, n, s),
                    zk_moment(years[a], parts[place], parts[b], h, n, s));
  ELSIF length(roles) = 2 AND separator IN ('-', '/') THEN
    RETURN CASE WHEN digits[1] = 4 THEN zk_moment(parts[1], parts[2], 1, h, n, s)
                WHEN digits[2] = 4 THEN zk_moment(parts[2], parts[1], 1, h, n, s) END;
  ELSIF length(roles) = 3 THEN
    RETURN coalesce(zk_moment(years[1], parts[2], parts[3], h, n, s), zk_moment(years[3], parts[1], parts[2], h, n, s),
                    zk_moment(years[3], parts[2], parts[1], h, n, s));
  END IF;
  RETURN NULL;
END $$;

CREATE OR REPLACE FUNCTION zk_read_other_date(t text) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE pieces record; place integer := 1; time_end integer := 0; kind text; follows text; rest text; half text := '';
        parts integer[] := '{}'; digits integer[] := '{}'; roles text := ''; marked boolean := false;
        h integer; n integer := 0; s integer := 0; length_of_time integer;
BEGIN
  SELECT * INTO pieces FROM zk_date_pieces(t);
  IF pieces.kinds IS NULL THEN RETURN NULL; END IF;
  WHILE place <= length(pieces.kinds) LOOP
    rest := substr(pieces.kinds, place);
    kind := left(rest, 1);
    follows := substr(rest, 2, 1);
    -- In "1 pm" the number is an hour; in "2004-4-1 下午 3:00" it ends the date.
    IF kind = '9' AND (follows IN (':', 'H')
                       OR follows IN ('a', 'p') AND h IS NULL AND substr(pieces.kinds, place - 1, 1) <> 's') THEN
      length_of_time := length(substring(rest from '^(9:9:9|9:9(?!:)|9H9N9S|9H9N(?!9)|9H(?!9)|9(?=[ap]))'));
      IF h IS NOT NULL OR length_of_time IS NULL THEN RETURN NULL; END IF;
      h := pieces.numbers[place];
      IF length_of_time > 2 THEN n := pieces.numbers[place + 2]; END IF;
      IF length_of_time > 4 THEN s := pieces.numbers[place + 4]; END IF;
      place := place + length_of_time;
      time_end := place;
    ELSIF kind IN ('9', 'm') THEN
      parts := parts || pieces.numbers[place];
      digits := digits || pieces.digits[place];
      roles := roles || CASE WHEN kind = 'm' THEN 'M' WHEN follows IN ('Y', 'M', 'D') THEN follows ELSE '?' END;
      place := place + CASE WHEN kind = '9' AND follows IN ('Y', 'M', 'D') THEN 2 ELSE 1 END;
      marked := marked OR kind = '9' AND follows IN ('Y', 'M', 'D');
      IF length(roles) > 3 THEN RETURN NULL; END IF;
    ELSIF kind = 's' AND roles <> '' AND place <> time_end AND substr(pieces.kinds, place - 1, 1) <> 's'
          AND follows IN ('9', 'm') THEN
      place := place + 1;
    ELSIF kind IN ('a', 'p') AND half = '' THEN
      half := kind;
      place := place + 1;
    ELSE
      RETURN NULL;
    END IF;
  END LOOP;
  IF half <> '' AND h IS NULL THEN RETURN NULL; END IF;
  h := CASE WHEN half = 'a' AND h = 12 THEN 0 WHEN half = 'p' AND h < 12 THEN h + 12 ELSE h END;
  IF roles = '' THEN RETURN zk_moment(1899, 12, 30, h, n, s); END IF;
  RETURN zk_date_of_parts(parts, digits, roles, marked, pieces.separator, coalesce(h, 0), n, s);
END $$;

CREATE OR REPLACE FUNCTION zk_read_date(t text) RETURNS timestamp LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE p integer[] := regexp_match(t, '^(\d{4})-(\d{1,2})-(\d{1,2})(?: (\d{1,2}):(\d{1,2}):(\d{1,2}))?$');
BEGIN
  RETURN coalesce(zk_moment(p[1], p[2], p[3], coalesce(p[4], 0), coalesce(p[5], 0), coalesce(p[6], 0)),
                  zk_read_other_date(t));
END $$;
