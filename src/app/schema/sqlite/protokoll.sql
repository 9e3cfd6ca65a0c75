-- The journal of the number ranges, for SQLite: who has changed which range, circle, assignment or
-- special range, from what to what and when. Triggers write it, so nobody is left out. Running this
-- again changes nothing. A blank line ends each statement.
--
-- SQLite knows no users; the time is UTC. Entries can be added, and neither changed nor deleted.
CREATE TABLE IF NOT EXISTS Nummernkreis_Protokoll (
  Eintrag        INTEGER PRIMARY KEY AUTOINCREMENT,
  Zeitpunkt      VARCHAR(30) NOT NULL DEFAULT (strftime('%Y-%m-%dT%H:%M:%fZ', 'now')),
  Anmeldung      VARCHAR(255),
  Anwender       VARCHAR(255),
  Sitzung        BIGINT,
  Vorgang        BIGINT,
  Tabelle        VARCHAR(40) NOT NULL,
  Aktion         VARCHAR(10) NOT NULL,
  Herkunft       TEXT,
  Buchungskreis  BIGINT,
  NSchl          TEXT,
  U_NSchl        TEXT,
  Benutzer       TEXT,
  NBezeichnung   TEXT,
  StartWert      BIGINT,
  AktuellerWert  BIGINT,
  EndWert        BIGINT,
  Aktiviert      BIGINT,
  SortierIndex   BIGINT,
  IstNSchlVon    TEXT,
  Maske          TEXT,
  Beschreibung   TEXT
);

CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_bleibt BEFORE UPDATE
ON Nummernkreis_Protokoll FOR EACH ROW
BEGIN
  SELECT RAISE(ABORT, 'Das Protokoll der Nummernkreise bleibt, wie es ist.');
END;

CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_behaelt BEFORE DELETE
ON Nummernkreis_Protokoll FOR EACH ROW
BEGIN
  SELECT RAISE(ABORT, 'Aus dem Protokoll der Nummernkreise wird nichts entfernt.');
END;

-- REPLACE removes the entry in whose place it puts another one without a trigger's notice. Where the
-- entry's number is left to the database, a number below 1 stands for it here.
CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_ersetzt BEFORE INSERT
ON Nummernkreis_Protokoll FOR EACH ROW
WHEN NEW.Eintrag > 0
  AND EXISTS (SELECT 1 FROM Nummernkreis_Protokoll WHERE Eintrag = NEW.Eintrag)
BEGIN
  SELECT RAISE(ABORT, 'Das Protokoll der Nummernkreise bleibt, wie es ist.');
END;

CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_Kreise_neu AFTER INSERT
ON Nummernkreise FOR EACH ROW
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, EndWert,
     Aktiviert, SortierIndex, IstNSchlVon, Maske)
  VALUES ('Nummernkreise', 'neu',
    NEW.Buchungskreis, NEW.NSchl, NEW.NBezeichnung, NEW.StartWert, NEW.AktuellerWert, NEW.EndWert,
    NEW.Aktiviert, NEW.SortierIndex, NEW.IstNSchlVon, NEW.Maske);
END;

CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_Kreise_weg AFTER DELETE
ON Nummernkreise FOR EACH ROW
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, EndWert,
     Aktiviert, SortierIndex, IstNSchlVon, Maske)
  VALUES ('Nummernkreise', 'weg',
    OLD.Buchungskreis, OLD.NSchl, OLD.NBezeichnung, OLD.StartWert, OLD.AktuellerWert, OLD.EndWert,
    OLD.Aktiviert, OLD.SortierIndex, OLD.IstNSchlVon, OLD.Maske);
END;

-- A statement that names no column but AktuellerWert draws a number.
DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Kreise_geaendert;

CREATE TRIGGER Nummernkreis_Protokoll_Kreise_geaendert AFTER UPDATE OF
  Buchungskreis, NSchl, NBezeichnung, StartWert, EndWert, Aktiviert, SortierIndex, IstNSchlVon,
  Maske
ON Nummernkreise FOR EACH ROW
WHEN OLD.Buchungskreis IS NOT NEW.Buchungskreis OR OLD.NSchl COLLATE BINARY IS NOT NEW.NSchl
  OR OLD.NBezeichnung COLLATE BINARY IS NOT NEW.NBezeichnung
  OR OLD.StartWert IS NOT NEW.StartWert OR OLD.AktuellerWert IS NOT NEW.AktuellerWert
  OR OLD.EndWert IS NOT NEW.EndWert OR OLD.Aktiviert IS NOT NEW.Aktiviert
  OR OLD.SortierIndex IS NOT NEW.SortierIndex
  OR OLD.IstNSchlVon COLLATE BINARY IS NOT NEW.IstNSchlVon
  OR OLD.Maske COLLATE BINARY IS NOT NEW.Maske
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, EndWert,
     Aktiviert, SortierIndex, IstNSchlVon, Maske)
  VALUES ('Nummernkreise', 'vorher',
    OLD.Buchungskreis, OLD.NSchl, OLD.NBezeichnung, OLD.StartWert, OLD.AktuellerWert, OLD.EndWert,
    OLD.Aktiviert, OLD.SortierIndex, OLD.IstNSchlVon, OLD.Maske);
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert, EndWert,
     Aktiviert, SortierIndex, IstNSchlVon, Maske)
  VALUES ('Nummernkreise', 'nachher',
    NEW.Buchungskreis, NEW.NSchl, NEW.NBezeichnung, NEW.StartWert, NEW.AktuellerWert, NEW.EndWert,
    NEW.Aktiviert, NEW.SortierIndex, NEW.IstNSchlVon, NEW.Maske);
END;

CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_Buchungskreise_neu AFTER INSERT
ON Nummernkreis_Buchungskreise FOR EACH ROW
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, Buchungskreis, Beschreibung)
  VALUES ('Nummernkreis_Buchungskreise', 'neu',
    NEW.Herkunft, NEW.Buchungskreis, NEW.Beschreibung);
END;

CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_Buchungskreise_weg AFTER DELETE
ON Nummernkreis_Buchungskreise FOR EACH ROW
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, Buchungskreis, Beschreibung)
  VALUES ('Nummernkreis_Buchungskreise', 'weg',
    OLD.Herkunft, OLD.Buchungskreis, OLD.Beschreibung);
END;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Buchungskreise_geaendert;

CREATE TRIGGER Nummernkreis_Protokoll_Buchungskreise_geaendert AFTER UPDATE
ON Nummernkreis_Buchungskreise FOR EACH ROW
WHEN OLD.Herkunft COLLATE BINARY IS NOT NEW.Herkunft OR OLD.Buchungskreis IS NOT NEW.Buchungskreis
  OR OLD.Beschreibung COLLATE BINARY IS NOT NEW.Beschreibung
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, Buchungskreis, Beschreibung)
  VALUES ('Nummernkreis_Buchungskreise', 'vorher',
    OLD.Herkunft, OLD.Buchungskreis, OLD.Beschreibung);
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, Buchungskreis, Beschreibung)
  VALUES ('Nummernkreis_Buchungskreise', 'nachher',
    NEW.Herkunft, NEW.Buchungskreis, NEW.Beschreibung);
END;

CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_Zuordnung_neu AFTER INSERT
ON Nummernkreis_Zuordnung FOR EACH ROW
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, Buchungskreis, NSchl, Benutzer)
  VALUES ('Nummernkreis_Zuordnung', 'neu',
    NEW.Herkunft, NEW.Buchungskreis, NEW.NSchl, NEW.Benutzer);
END;

CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_Zuordnung_weg AFTER DELETE
ON Nummernkreis_Zuordnung FOR EACH ROW
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, Buchungskreis, NSchl, Benutzer)
  VALUES ('Nummernkreis_Zuordnung', 'weg',
    OLD.Herkunft, OLD.Buchungskreis, OLD.NSchl, OLD.Benutzer);
END;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Zuordnung_geaendert;

CREATE TRIGGER Nummernkreis_Protokoll_Zuordnung_geaendert AFTER UPDATE
ON Nummernkreis_Zuordnung FOR EACH ROW
WHEN OLD.Herkunft COLLATE BINARY IS NOT NEW.Herkunft OR OLD.Buchungskreis IS NOT NEW.Buchungskreis
  OR OLD.NSchl COLLATE BINARY IS NOT NEW.NSchl
  OR OLD.Benutzer COLLATE BINARY IS NOT NEW.Benutzer
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, Buchungskreis, NSchl, Benutzer)
  VALUES ('Nummernkreis_Zuordnung', 'vorher',
    OLD.Herkunft, OLD.Buchungskreis, OLD.NSchl, OLD.Benutzer);
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, Buchungskreis, NSchl, Benutzer)
  VALUES ('Nummernkreis_Zuordnung', 'nachher',
    NEW.Herkunft, NEW.Buchungskreis, NEW.NSchl, NEW.Benutzer);
END;

CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_Sonderkreise_neu AFTER INSERT
ON Nummernkreis_Sonderkreise FOR EACH ROW
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, U_NSchl, NSchl, NBezeichnung, Aktiviert)
  VALUES ('Nummernkreis_Sonderkreise', 'neu',
    NEW.Herkunft, NEW.U_NSchl, NEW.NSchl, NEW.NBezeichnung, NEW.Aktiviert);
END;

CREATE TRIGGER IF NOT EXISTS Nummernkreis_Protokoll_Sonderkreise_weg AFTER DELETE
ON Nummernkreis_Sonderkreise FOR EACH ROW
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, U_NSchl, NSchl, NBezeichnung, Aktiviert)
  VALUES ('Nummernkreis_Sonderkreise', 'weg',
    OLD.Herkunft, OLD.U_NSchl, OLD.NSchl, OLD.NBezeichnung, OLD.Aktiviert);
END;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Sonderkreise_geaendert;

CREATE TRIGGER Nummernkreis_Protokoll_Sonderkreise_geaendert AFTER UPDATE
ON Nummernkreis_Sonderkreise FOR EACH ROW
WHEN OLD.Herkunft COLLATE BINARY IS NOT NEW.Herkunft
  OR OLD.U_NSchl COLLATE BINARY IS NOT NEW.U_NSchl OR OLD.NSchl COLLATE BINARY IS NOT NEW.NSchl
  OR OLD.NBezeichnung COLLATE BINARY IS NOT NEW.NBezeichnung
  OR OLD.Aktiviert IS NOT NEW.Aktiviert
BEGIN
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, U_NSchl, NSchl, NBezeichnung, Aktiviert)
  VALUES ('Nummernkreis_Sonderkreise', 'vorher',
    OLD.Herkunft, OLD.U_NSchl, OLD.NSchl, OLD.NBezeichnung, OLD.Aktiviert);
  INSERT INTO Nummernkreis_Protokoll
    (Tabelle, Aktion, Herkunft, U_NSchl, NSchl, NBezeichnung, Aktiviert)
  VALUES ('Nummernkreis_Sonderkreise', 'nachher',
    NEW.Herkunft, NEW.U_NSchl, NEW.NSchl, NEW.NBezeichnung, NEW.Aktiviert);
END;
