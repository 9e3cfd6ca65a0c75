-- The journal of the number ranges, for PostgreSQL: who has changed which range, circle, assignment or
-- special range, from what to what and when. Triggers write it, so nobody is left out. To be run by the
-- owner of the tables; running it again changes nothing. A blank line ends each statement.
--
-- The triggers write with the rights of their owner, so nobody else needs any on the journal: give the
-- right to read it to those who may see it. Entries are neither changed nor deleted. The time is UTC. A
-- host that logs everybody in under one name says who it is for: SET vexnumkr.anwender = 'Hoffmann'.
CREATE TABLE IF NOT EXISTS Nummernkreis_Protokoll (
  Eintrag        BIGINT GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
  Zeitpunkt      VARCHAR(30) NOT NULL
                 DEFAULT to_char(clock_timestamp() AT TIME ZONE 'UTC', 'YYYY-MM-DD"T"HH24:MI:SS.MS"Z"'),
  Anmeldung      TEXT COLLATE "C" DEFAULT session_user,
  Anwender       TEXT COLLATE "C" DEFAULT NULLIF(current_setting('vexnumkr.anwender', true), ''),
  Sitzung        BIGINT DEFAULT pg_backend_pid(),
  Vorgang        BIGINT DEFAULT txid_current(),
  Tabelle        TEXT COLLATE "C" NOT NULL,
  Aktion         TEXT COLLATE "C" NOT NULL,
  Herkunft       TEXT COLLATE "C",
  Buchungskreis  BIGINT,
  NSchl          TEXT COLLATE "C",
  U_NSchl        TEXT COLLATE "C",
  Benutzer       TEXT COLLATE "C",
  NBezeichnung   TEXT COLLATE "C",
  StartWert      BIGINT,
  AktuellerWert  BIGINT,
  EndWert        BIGINT,
  Aktiviert      BIGINT,
  SortierIndex   BIGINT,
  IstNSchlVon    TEXT COLLATE "C",
  Maske          TEXT COLLATE "C",
  Beschreibung   TEXT COLLATE "C"
);

REVOKE ALL ON Nummernkreis_Protokoll FROM PUBLIC;

CREATE OR REPLACE FUNCTION Nummernkreis_Protokoll_bleibt() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
  RAISE EXCEPTION 'Das Protokoll der Nummernkreise bleibt, wie es ist.';
END
$$;

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_bleibt BEFORE UPDATE OR DELETE OR TRUNCATE
ON Nummernkreis_Protokoll FOR EACH STATEMENT EXECUTE FUNCTION Nummernkreis_Protokoll_bleibt();

CREATE OR REPLACE FUNCTION Nummernkreis_Protokoll_Kreise() RETURNS trigger
LANGUAGE plpgsql SECURITY DEFINER AS $$
BEGIN
  IF TG_OP <> 'INSERT' THEN
    INSERT INTO Nummernkreis_Protokoll
      (Tabelle, Aktion, Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, EndWert,
       Aktiviert, SortierIndex, IstNSchlVon, Maske)
    VALUES ('Nummernkreise', CASE TG_OP WHEN 'DELETE' THEN 'weg' ELSE 'vorher' END,
      OLD.Buchungskreis, OLD.NSchl, OLD.NBezeichnung, OLD.StartWert, OLD.AktuellerWert,
      OLD.EndWert, OLD.Aktiviert, OLD.SortierIndex, OLD.IstNSchlVon, OLD.Maske);
  END IF;
  IF TG_OP <> 'DELETE' THEN
    INSERT INTO Nummernkreis_Protokoll
      (Tabelle, Aktion, Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, EndWert,
       Aktiviert, SortierIndex, IstNSchlVon, Maske)
    VALUES ('Nummernkreise', CASE TG_OP WHEN 'INSERT' THEN 'neu' ELSE 'nachher' END,
      NEW.Buchungskreis, NEW.NSchl, NEW.NBezeichnung, NEW.StartWert, NEW.AktuellerWert,
      NEW.EndWert, NEW.Aktiviert, NEW.SortierIndex, NEW.IstNSchlVon, NEW.Maske);
  END IF;
  RETURN NULL;
END
$$;

CREATE OR REPLACE FUNCTION Nummernkreis_Protokoll_Buchungskreise() RETURNS trigger
LANGUAGE plpgsql SECURITY DEFINER AS $$
BEGIN
  IF TG_OP <> 'INSERT' THEN
    INSERT INTO Nummernkreis_Protokoll
      (Tabelle, Aktion, Herkunft, Buchungskreis, Beschreibung)
    VALUES ('Nummernkreis_Buchungskreise', CASE TG_OP WHEN 'DELETE' THEN 'weg' ELSE 'vorher' END,
      OLD.Herkunft, OLD.Buchungskreis, OLD.Beschreibung);
  END IF;
  IF TG_OP <> 'DELETE' THEN
    INSERT INTO Nummernkreis_Protokoll
      (Tabelle, Aktion, Herkunft, Buchungskreis, Beschreibung)
    VALUES ('Nummernkreis_Buchungskreise', CASE TG_OP WHEN 'INSERT' THEN 'neu' ELSE 'nachher' END,
      NEW.Herkunft, NEW.Buchungskreis, NEW.Beschreibung);
  END IF;
  RETURN NULL;
END
$$;

CREATE OR REPLACE FUNCTION Nummernkreis_Protokoll_Zuordnung() RETURNS trigger
LANGUAGE plpgsql SECURITY DEFINER AS $$
BEGIN
  IF TG_OP <> 'INSERT' THEN
    INSERT INTO Nummernkreis_Protokoll
      (Tabelle, Aktion, Herkunft, Buchungskreis, NSchl, Benutzer)
    VALUES ('Nummernkreis_Zuordnung', CASE TG_OP WHEN 'DELETE' THEN 'weg' ELSE 'vorher' END,
      OLD.Herkunft, OLD.Buchungskreis, OLD.NSchl, OLD.Benutzer);
  END IF;
  IF TG_OP <> 'DELETE' THEN
    INSERT INTO Nummernkreis_Protokoll
      (Tabelle, Aktion, Herkunft, Buchungskreis, NSchl, Benutzer)
    VALUES ('Nummernkreis_Zuordnung', CASE TG_OP WHEN 'INSERT' THEN 'neu' ELSE 'nachher' END,
      NEW.Herkunft, NEW.Buchungskreis, NEW.NSchl, NEW.Benutzer);
  END IF;
  RETURN NULL;
END
$$;

CREATE OR REPLACE FUNCTION Nummernkreis_Protokoll_Sonderkreise() RETURNS trigger
LANGUAGE plpgsql SECURITY DEFINER AS $$
BEGIN
  IF TG_OP <> 'INSERT' THEN
    INSERT INTO Nummernkreis_Protokoll
      (Tabelle, Aktion, Herkunft, U_NSchl, NSchl, NBezeichnung, Aktiviert)
    VALUES ('Nummernkreis_Sonderkreise', CASE TG_OP WHEN 'DELETE' THEN 'weg' ELSE 'vorher' END,
      OLD.Herkunft, OLD.U_NSchl, OLD.NSchl, OLD.NBezeichnung, OLD.Aktiviert);
  END IF;
  IF TG_OP <> 'DELETE' THEN
    INSERT INTO Nummernkreis_Protokoll
      (Tabelle, Aktion, Herkunft, U_NSchl, NSchl, NBezeichnung, Aktiviert)
    VALUES ('Nummernkreis_Sonderkreise', CASE TG_OP WHEN 'INSERT' THEN 'neu' ELSE 'nachher' END,
      NEW.Herkunft, NEW.U_NSchl, NEW.NSchl, NEW.NBezeichnung, NEW.Aktiviert);
  END IF;
  RETURN NULL;
END
$$;

REVOKE ALL ON FUNCTION Nummernkreis_Protokoll_Kreise() FROM PUBLIC;

REVOKE ALL ON FUNCTION Nummernkreis_Protokoll_Buchungskreise() FROM PUBLIC;

REVOKE ALL ON FUNCTION Nummernkreis_Protokoll_Zuordnung() FROM PUBLIC;

REVOKE ALL ON FUNCTION Nummernkreis_Protokoll_Sonderkreise() FROM PUBLIC;

-- Whatever the search path of those who change something, the functions find the journal and nothing
-- that was put in its way.
DO $$
BEGIN
  EXECUTE format('ALTER FUNCTION Nummernkreis_Protokoll_Kreise()'
                 ' SET search_path = pg_catalog, %I, pg_temp', current_schema());
  EXECUTE format('ALTER FUNCTION Nummernkreis_Protokoll_Buchungskreise()'
                 ' SET search_path = pg_catalog, %I, pg_temp', current_schema());
  EXECUTE format('ALTER FUNCTION Nummernkreis_Protokoll_Zuordnung()'
                 ' SET search_path = pg_catalog, %I, pg_temp', current_schema());
  EXECUTE format('ALTER FUNCTION Nummernkreis_Protokoll_Sonderkreise()'
                 ' SET search_path = pg_catalog, %I, pg_temp', current_schema());
END
$$;

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Kreise AFTER INSERT OR DELETE
ON Nummernkreise FOR EACH ROW EXECUTE FUNCTION Nummernkreis_Protokoll_Kreise();

-- A statement that names no column but AktuellerWert draws a number.
CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Kreise_geaendert AFTER UPDATE OF
  Buchungskreis, NSchl, NBezeichnung, StartWert, EndWert, Aktiviert, SortierIndex, IstNSchlVon,
  Maske
ON Nummernkreise FOR EACH ROW
WHEN ((OLD.Buchungskreis, OLD.NSchl, OLD.NBezeichnung, OLD.StartWert, OLD.AktuellerWert,
       OLD.EndWert, OLD.Aktiviert, OLD.SortierIndex, OLD.IstNSchlVon, OLD.Maske) IS DISTINCT FROM
      (NEW.Buchungskreis, NEW.NSchl, NEW.NBezeichnung, NEW.StartWert, NEW.AktuellerWert,
       NEW.EndWert, NEW.Aktiviert, NEW.SortierIndex, NEW.IstNSchlVon, NEW.Maske))
EXECUTE FUNCTION Nummernkreis_Protokoll_Kreise();

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Buchungskreise AFTER INSERT OR DELETE
ON Nummernkreis_Buchungskreise FOR EACH ROW EXECUTE FUNCTION Nummernkreis_Protokoll_Buchungskreise();

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Buchungskreise_geaendert AFTER UPDATE
ON Nummernkreis_Buchungskreise FOR EACH ROW
WHEN ((OLD.Herkunft, OLD.Buchungskreis, OLD.Beschreibung) IS DISTINCT FROM
      (NEW.Herkunft, NEW.Buchungskreis, NEW.Beschreibung))
EXECUTE FUNCTION Nummernkreis_Protokoll_Buchungskreise();

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Zuordnung AFTER INSERT OR DELETE
ON Nummernkreis_Zuordnung FOR EACH ROW EXECUTE FUNCTION Nummernkreis_Protokoll_Zuordnung();

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Zuordnung_geaendert AFTER UPDATE
ON Nummernkreis_Zuordnung FOR EACH ROW
WHEN ((OLD.Herkunft, OLD.Buchungskreis, OLD.NSchl, OLD.Benutzer) IS DISTINCT FROM
      (NEW.Herkunft, NEW.Buchungskreis, NEW.NSchl, NEW.Benutzer))
EXECUTE FUNCTION Nummernkreis_Protokoll_Zuordnung();

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Sonderkreise AFTER INSERT OR DELETE
ON Nummernkreis_Sonderkreise FOR EACH ROW EXECUTE FUNCTION Nummernkreis_Protokoll_Sonderkreise();

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Sonderkreise_geaendert AFTER UPDATE
ON Nummernkreis_Sonderkreise FOR EACH ROW
WHEN ((OLD.Herkunft, OLD.U_NSchl, OLD.NSchl, OLD.NBezeichnung, OLD.Aktiviert) IS DISTINCT FROM
      (NEW.Herkunft, NEW.U_NSchl, NEW.NSchl, NEW.NBezeichnung, NEW.Aktiviert))
EXECUTE FUNCTION Nummernkreis_Protokoll_Sonderkreise();
