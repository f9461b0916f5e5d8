-- Format: numbers, dates and texts under a picture, as the platform shows them.

-- The same value as what a picture may ask for.
CREATE OR REPLACE FUNCTION zk_shown_number(v double precision) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT v::numeric $$;
CREATE OR REPLACE FUNCTION zk_shown_number(d timestamp) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_serial(d)::numeric $$;
CREATE OR REPLACE FUNCTION zk_shown_number(t text) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT coalesce(zk_read_number(t), zk_serial(zk_read_date(t)))::numeric $$;
CREATE OR REPLACE FUNCTION zk_shown_date(v double precision) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_date_of_serial(v) $$;
CREATE OR REPLACE FUNCTION zk_shown_date(d timestamp) RETURNS timestamp
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT d $$;
CREATE OR REPLACE FUNCTION zk_shown_date(t text) RETURNS timestamp LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT coalesce(zk_read_date(t), zk_date_of_serial(zk_read_number(t))) $$;
CREATE OR REPLACE FUNCTION zk_shown_text(v double precision) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_text(v) $$;
CREATE OR REPLACE FUNCTION zk_shown_text(d timestamp) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_datetext(d) $$;
CREATE OR REPLACE FUNCTION zk_shown_text(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT t $$;

-- "..." and \x stand for themselves: what of the picture's piece is to be shown, Null where it is no such literal.
CREATE OR REPLACE FUNCTION zk_literal(piece text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN piece LIKE '"%' THEN rtrim(substr(piece, 2), '"')
               WHEN length(piece) = 2 AND left(piece, 1) = '\' THEN substr(piece, 2) END $$;

-- A picture cut at its semicolons.
CREATE OR REPLACE FUNCTION zk_sections(picture text) RETURNS text[] LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE sections text[] := '{}'; section text := ''; piece text;
BEGIN
  IF picture !~ '[";\\]' THEN RETURN ARRAY[picture]; END IF;
  FOR piece IN SELECT m[1] FROM regexp_matches(picture, '(\\.|"[^"]*"?|.)', 'g') m LOOP
    IF piece = ';' THEN
      sections := sections || section;
      section := '';
    ELSE
      section := section || piece;
    END IF;
  END LOOP;
  RETURN sections || section;
END $$;

-- How many places stand before the point: 2 for 12.5, 0 for 0.5, -1 for 0.05.
CREATE OR REPLACE FUNCTION zk_magnitude(v numeric) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT CASE WHEN v >= 1 THEN length(trunc(v)::text)
               ELSE length(ltrim(split_part(v::text, '.', 2), '0')) - length(split_part(v::text, '.', 2)) END $$;

-- One section of a number's picture, read and filled in.
CREATE OR REPLACE FUNCTION zk_format_section(n numeric, section text, signed boolean) RETURNS text
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE pieces text[] := ARRAY(SELECT m[1] FROM regexp_matches(section, '(\\.|"[^"]*"?|[eE][+-][0#]*|.)', 'g') m);
        piece text; point boolean := false; thousands boolean := false; commas integer := 0; places integer := 0;
        decimals integer := 0; power_places integer := 0; shift integer := 0; power integer := 0;
        v numeric; whole text; fraction text; result text := ''; index integer := 0; from_right integer;
        zero_seen boolean := false; last_zero integer := 0;
BEGIN
  FOREACH piece IN ARRAY pieces LOOP
    IF piece IN ('0', '#') THEN
      thousands := thousands OR commas > 0 AND places > 0;
      commas := 0;
      IF point THEN decimals := decimals + 1; ELSE places := places + 1; END IF;
      IF point AND piece = '0' THEN last_zero := decimals; END IF;
    ELSIF piece = ',' AND NOT point THEN commas := commas + 1;
    ELSIF piece = '%' THEN shift := shift + 2;
    ELSIF piece = '.' OR piece ~ '^[eE][+-]' THEN
      -- Commas with no digit behind them divide by a thousand each.
      IF places > 0 THEN shift := shift - 3 * commas; END IF;
      commas := 0;
      point := true;
      IF piece <> '.' THEN power_places := length(piece) - 2; END IF;
    END IF;
  END LOOP;
  IF places > 0 THEN shift := shift - 3 * commas; END IF;

  v := abs(n) * ('1e' || shift)::numeric;
  IF power_places > 0 AND v <> 0 THEN
    -- Rounding may carry into one more digit: 9.996 under 0.00E+00 is 1.00E+01.
    power := zk_magnitude(v) - places;
    power := zk_magnitude(round(v, decimals - power)) - places;
    v := v * ('1e' || -power)::numeric;
  END IF;
  v := round(v, decimals);
  whole := CASE WHEN v < 1 THEN '' ELSE trunc(v)::text END;
  fraction := split_part(v::text, '.', 2);

  point := false;
  FOREACH piece IN ARRAY pieces LOOP
    IF piece IN ('0', '#') AND NOT point THEN
      -- The first place also takes the digits for which the picture has no place.
      zero_seen := zero_seen OR piece = '0';
      from_right := CASE index WHEN 0 THEN greatest(length(whole), places) ELSE places - index END;
      index := index + 1;
      WHILE from_right > places - index LOOP
        from_right := from_right - 1;
        CONTINUE WHEN from_right >= length(whole) AND (from_right <> places - index OR NOT zero_seen);
        result := result || CASE WHEN from_right < length(whole)
                                 THEN substr(whole, length(whole) - from_right, 1) ELSE '0' END;
        IF thousands AND from_right > 0 AND from_right % 3 = 0 THEN result := result || ','; END IF;
      END LOOP;
    ELSIF piece IN ('0', '#') THEN
      index := index + 1;
      IF index <= last_zero OR substr(fraction, index) ~ '[1-9]' THEN result := result || substr(fraction, index, 1); END IF;
    ELSIF piece = '.' THEN
      CONTINUE WHEN point;
      IF places = 0 THEN result := result || whole; END IF;
      result := result || '.';
      point := true;
      index := 0;
    ELSIF piece ~ '^[eE][+-]' THEN
      result := result || left(piece, 1) || CASE WHEN power < 0 THEN '-' WHEN piece ~ '^.[+]' THEN '+' ELSE '' END
                || lpad(abs(power)::text, greatest(power_places, length(abs(power)::text)), '0');
      point := true;
      index := 0;
    ELSIF piece <> ',' THEN
      result := result || coalesce(zk_literal(piece), piece);
    END IF;
  END LOOP;
  RETURN CASE WHEN signed AND n < 0 AND v <> 0 THEN '-' ELSE '' END || result;
END $$;

CREATE OR REPLACE FUNCTION zk_format_number(n numeric, picture text) RETURNS text
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE sections text[] := zk_sections(picture);
BEGIN
  IF n = 0 AND sections[3] <> '' THEN RETURN zk_format_section(n, sections[3], false); END IF;
  IF n < 0 AND sections[2] <> '' THEN RETURN zk_format_section(n, sections[2], false); END IF;
  RETURN zk_format_section(n, sections[1], true);
END $$;

-- "m" behind "h" or before "s" is minutes.
CREATE OR REPLACE FUNCTION zk_format_moment(d timestamp, picture text) RETURNS text
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE pieces text[] := ARRAY(SELECT m[1] FROM regexp_matches(picture,
          '(\\.|"[^"]*"?|AM/PM|am/pm|AMPM|A/P|a/p|y+|m+|d+|h+|n+|s+|q+|w+|c+|t+|Y+|M+|D+|H+|N+|S+|Q+|W+|C+|T+|.)', 'g') m);
        twelve boolean := picture ~ '(AM/PM|am/pm|AMPM|A/P|a/p)'; piece text; letter text; size integer;
        before text := ''; after text; result text := '';
BEGIN
  FOR i IN 1 .. coalesce(array_length(pieces, 1), 0) LOOP
    piece := pieces[i];
    size := length(piece);
    IF zk_literal(piece) IS NOT NULL THEN
      result := result || zk_literal(piece);
      CONTINUE;
    ELSIF piece IN ('AM/PM', 'am/pm', 'AMPM', 'A/P', 'a/p') THEN
      result := result || CASE WHEN extract(hour FROM d) < 12 THEN substr(piece, 1, CASE WHEN size > 3 THEN 2 ELSE 1 END)
                               WHEN size > 3 THEN right(piece, 2) ELSE right(piece, 1) END;
      CONTINUE;
    ELSIF piece !~* '^[ymdhnsqwct]' THEN
      result := result || piece;
      CONTINUE;
    END IF;
    letter := lower(left(piece, 1));
    IF letter = 'm' AND size < 3 THEN
      SELECT lower(left(p, 1)) INTO after FROM unnest(pieces[i + 1:]) WITH ORDINALITY AS u(p, o)
      WHERE p ~* '^[ymdhnsqwct]' ORDER BY o LIMIT 1;
      IF before = 'h' OR after = 's' THEN letter := 'n'; END IF;
      before := 'm';
    ELSE
      before := letter;
    END IF;
    result := result || CASE letter
      WHEN 'y' THEN CASE size WHEN 1 THEN to_char(d, 'FMDDD') WHEN 2 THEN to_char(d, 'YY') ELSE to_char(d, 'YYYY') END
      WHEN 'm' THEN CASE size WHEN 1 THEN to_char(d, 'FMMM') WHEN 2 THEN to_char(d, 'MM') WHEN 3 THEN to_char(d, 'Mon')
                              ELSE to_char(d, 'FMMonth') END
      WHEN 'd' THEN CASE size WHEN 1 THEN to_char(d, 'FMDD') WHEN 2 THEN to_char(d, 'DD') WHEN 3 THEN to_char(d, 'Dy')
                              WHEN 4 THEN to_char(d, 'FMDay') WHEN 5 THEN to_char(d, 'YYYY-FMMM-FMDD')
                              ELSE to_char(d, 'YYYY年FMMM月FMDD日') END
      WHEN 'h' THEN to_char(d, CASE WHEN size = 1 THEN 'FM' ELSE '' END || CASE WHEN twelve THEN 'HH12' ELSE 'HH24' END)
      WHEN 'n' THEN to_char(d, CASE WHEN size = 1 THEN 'FM' ELSE '' END || 'MI')
      WHEN 's' THEN to_char(d, CASE WHEN size = 1 THEN 'FM' ELSE '' END || 'SS')
      WHEN 'q' THEN to_char(d, 'Q')
      WHEN 'w' THEN zk_datepart(CASE size WHEN 1 THEN 'w' ELSE 'ww' END, d)::text
      WHEN 'c' THEN zk_datetext(d)
      ELSE to_char(d, 'FMHH24:MI:SS') END;
  END LOOP;
  RETURN result;
END $$;

-- @ a character or a blank, & a character or nothing, filled from the right unless ! stands in the picture; < and >
-- change the case.
CREATE OR REPLACE FUNCTION zk_format_text(t text, picture text) RETURNS text
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE places integer := length(picture) - length(translate(picture, '@&', '')); from_left boolean := picture LIKE '%!%';
        missing integer := greatest(places - length(t), 0); taken integer := 0; result text := ''; sign text;
BEGIN
  IF places > 0 AND length(t) > places AND NOT from_left THEN
    taken := length(t) - places;
    result := left(t, length(t) - places);
  END IF;
  FOREACH sign IN ARRAY regexp_split_to_array(translate(picture, '<>!', ''), '') LOOP
    IF sign NOT IN ('@', '&') THEN
      result := result || sign;
    ELSIF from_left AND taken >= length(t) OR NOT from_left AND missing > 0 THEN
      missing := missing - 1;
      IF sign = '@' THEN result := result || ' '; END IF;
    ELSE
      taken := taken + 1;
      result := result || substr(t, taken, 1);
    END IF;
  END LOOP;
  result := result || substr(t, CASE places WHEN 0 THEN 1 ELSE taken + 1 END);
  RETURN CASE WHEN picture LIKE '%<%' THEN lower(result) WHEN picture LIKE '%>%' THEN upper(result) ELSE result END;
END $$;

-- The first character with a meaning tells what the picture is for.
CREATE OR REPLACE FUNCTION zk_format_any(v anyelement, picture text) RETURNS text
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE named text; first text; n numeric; d timestamp;
BEGIN
  IF v IS NULL THEN
    RETURN CASE WHEN cardinality(zk_sections(picture)) = 4 THEN zk_format_number(0, (zk_sections(picture))[4]) ELSE '' END;
  END IF;
  IF picture ~ '^0(\.0+)?$' THEN
    RETURN coalesce(round(zk_shown_number(v), greatest(length(picture) - 2, 0))::text, zk_shown_text(v));
  END IF;
  IF picture = '' THEN RETURN zk_shown_text(v); END IF;
  named := CASE lower(picture)
    WHEN 'fixed' THEN '0.00' WHEN 'standard' THEN '#,##0.00' WHEN 'percent' THEN '0.00%'
    WHEN 'scientific' THEN '0.00E+00' WHEN 'currency' THEN '￥#,##0.00;￥-#,##0.00' WHEN 'general date' THEN 'c'
    WHEN 'long date' THEN 'dddddd' WHEN 'medium date' THEN 'dd-mmm-yy' WHEN 'short date' THEN 'ddddd'
    WHEN 'long time' THEN 'ttttt' WHEN 'medium time' THEN 'hh:nn AM/PM' WHEN 'short time' THEN 'hh:nn' END;
  IF named IS NOT NULL THEN RETURN zk_format_any(v, named); END IF;
  IF lower(picture) = 'general number' THEN
    RETURN CASE pg_typeof(v) WHEN 'timestamp'::regtype THEN zk_text(zk_shown_number(v)) ELSE zk_shown_text(v) END;
  END IF;
  IF lower(picture) IN ('yes/no', 'true/false', 'on/off') THEN
    n := zk_shown_number(v);
    RETURN CASE WHEN n IS NULL THEN zk_shown_text(v)
                ELSE initcap(split_part(picture, '/', CASE WHEN n = 0 THEN 2 ELSE 1 END)) END;
  END IF;
  first := left(substring(regexp_replace(picture, '\\.|"[^"]*"?', '~', 'g')
                          from '[0#.,%@&<>!ymdhnswqcYMDHNSWQC]|ttttt|AM/PM|am/pm'), 1);
  IF first IS NULL THEN RETURN zk_format_number(0, picture); END IF;
  IF first IN ('@', '&', '<', '>', '!') THEN RETURN zk_format_text(zk_shown_text(v), picture); END IF;
  IF first IN ('0', '#', '.', ',', '%') THEN
    n := zk_shown_number(v);
    RETURN CASE WHEN n IS NULL THEN zk_shown_text(v) ELSE zk_format_number(n, picture) END;
  END IF;
  d := zk_shown_date(v);
  RETURN CASE WHEN d IS NULL THEN zk_shown_text(v) ELSE zk_format_moment(d, picture) END;
END $$;
CREATE OR REPLACE FUNCTION zk_format(v double precision, picture text) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_format_any(v, picture) $$;
CREATE OR REPLACE FUNCTION zk_format(t text, picture text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_format_any(t, picture) $$;
CREATE OR REPLACE FUNCTION zk_format_date(d timestamp, picture text) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
$$ SELECT zk_format_any(d, picture) $$;
