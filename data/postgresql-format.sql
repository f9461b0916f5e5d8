-- Format: a number or a date under one of the pictures that accounts are kept with.

-- Digits with or without a point, commas between thousands, a percent sign: "#,##0.00", "00000", "0.00%".
CREATE OR REPLACE FUNCTION zk_shown_number(n numeric, picture text[]) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE decimals text := substr(picture[2], 2); fixed integer := length(rtrim(decimals, '#'));
        v numeric := round(abs(n) * CASE picture[3] WHEN '%' THEN 100 ELSE 1 END, length(decimals));
        whole text := CASE WHEN v < 1 THEN '' ELSE trunc(v)::text END; fraction text := split_part(v::text, '.', 2);
BEGIN
  whole := lpad(whole, greatest(length(whole), length(ltrim(replace(picture[1], ',', ''), '#'))), '0');
  IF picture[1] LIKE '%,%' THEN whole := regexp_replace(whole, '([0-9])(?=([0-9]{3})+$)', '\1,', 'g'); END IF;
  RETURN CASE WHEN n < 0 AND v <> 0 THEN '-' ELSE '' END || whole || left(picture[2], 1) || left(fraction, fixed)
         || rtrim(substr(fraction, fixed + 1), '0') || picture[3];
END $$;

-- "m" after "h" or before "s" is minutes.
CREATE OR REPLACE FUNCTION zk_shown_date(d timestamp, picture text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE shown text := regexp_replace(regexp_replace(picture, '(h[^a-z]*)mm', '\1nn', 'g'), '(h[^a-z]*)m', '\1n', 'g');
        piece text[];
BEGIN
  shown := regexp_replace(regexp_replace(shown, 'mm([^a-z]*s)', 'nn\1', 'g'), 'm([^a-z]*s)', 'n\1', 'g');
  FOREACH piece SLICE 1 IN ARRAY ARRAY[['yyyy', 'YYYY'], ['mm', 'MM'], ['m', 'FMMM'], ['dd', 'DD'], ['d', 'FMDD'],
      ['hh', 'HH24'], ['h', 'FMHH24'], ['nn', 'MI'], ['n', 'FMMI'], ['ss', 'SS'], ['s', 'FMSS']] LOOP
    shown := replace(shown, piece[1], piece[2]);
  END LOOP;
  RETURN to_char(d, shown);
END $$;

CREATE OR REPLACE FUNCTION zk_shown(t text, picture text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE number constant text[] := regexp_match(picture, '^((?:(?:[#0]+,)*[#0]+)?)((?:\.[#0]*)?)(%?)$');
        dated constant text := lower(picture);
BEGIN
  IF t IS NULL THEN RETURN ''; END IF;
  IF picture ~ '[#0]' AND number IS NOT NULL THEN
    RETURN coalesce(zk_shown_number(coalesce(zk_read_number(t), zk_serial(zk_read_date(t)))::numeric, number), t);
  END IF;
  IF dated ~ '[ymdhns]' AND dated ~ '^([^a-z"\\@&<>!;]|yyyy(?!y)|mm?(?!m)|dd?(?!d)|hh?(?!h)|nn?(?!n)|ss?(?!s))+$' THEN
    RETURN coalesce(zk_shown_date(coalesce(zk_read_date(t), zk_date_of_serial(zk_read_number(t))), dated), t);
  END IF;
  RAISE EXCEPTION USING ERRCODE = 'ZK001', MESSAGE = picture;
END $$;
