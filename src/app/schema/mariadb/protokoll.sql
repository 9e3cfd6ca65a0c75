-- The journal of the number ranges, for MariaDB: who has changed which range, circle, assignment or
-- special range, from what to what and when. Triggers write it, so nobody is left out. To be run by an
-- administrator; running it again changes nothing. A blank line ends each statement.
--
-- The triggers write with the rights of whoever has run this, so nobody else needs any on the journal:
-- give the right to read it to those who may see it. That account has to stay. Entries are neither
-- changed nor deleted. The time is UTC. A host that logs everybody in under one name says who it is for:
-- SET @vexnumkr_anwender = 'Hoffmann'.
CREATE TABLE IF NOT EXISTS Nummernkreis_Protokoll (
  Eintrag        BIGINT NOT NULL AUTO_INCREMENT PRIMARY KEY,
  Zeitpunkt      VARCHAR(30) NOT NULL
                 DEFAULT (CONCAT(LEFT(DATE_FORMAT(UTC_TIMESTAMP(3), '%Y-%m-%dT%H:%i:%s.%f'), 23), 'Z')),
  Anmeldung      VARCHAR(255) DEFAULT (USER()),
  Anwender       VARCHAR(255),
  Sitzung        BIGINT DEFAULT (CONNECTION_ID()),
  Vorgang        BIGINT,
  Tabelle        VARCHAR(40) NOT NULL,
  Aktion         VARCHAR(10) NOT NULL,
  Herkunft       LONGTEXT,
  Buchungskreis  BIGINT,
  NSchl          LONGTEXT,
  U_NSchl        LONGTEXT,
  Benutzer       LONGTEXT,
  NBezeichnung   LONGTEXT,
  StartWert      BIGINT,
  AktuellerWert  BIGINT,
  EndWert        BIGINT,
  Aktiviert      BIGINT,
  SortierIndex   BIGINT,
  IstNSchlVon    LONGTEXT,
  Maske          LONGTEXT,
  Beschreibung   LONGTEXT
) ENGINE = InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_bleibt BEFORE UPDATE
ON Nummernkreis_Protokoll FOR EACH ROW
SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT = 'Das Protokoll der Nummernkreise bleibt, wie es ist.';

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_behaelt BEFORE DELETE
ON Nummernkreis_Protokoll FOR EACH ROW
SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT = 'Aus dem Protokoll der Nummernkreise wird nichts entfernt.';

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Kreise_neu AFTER INSERT
ON Nummernkreise FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert,
   EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske)
SELECT @vexnumkr_anwender, 'Nummernkreise', 'neu',
  NEW.Buchungskreis, NEW.NSchl, NEW.NBezeichnung, NEW.StartWert, NEW.AktuellerWert, NEW.EndWert,
  NEW.Aktiviert, NEW.SortierIndex, NEW.IstNSchlVon, NEW.Maske FROM DUAL;

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Kreise_weg AFTER DELETE
ON Nummernkreise FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert,
   EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske)
SELECT @vexnumkr_anwender, 'Nummernkreise', 'weg',
  OLD.Buchungskreis, OLD.NSchl, OLD.NBezeichnung, OLD.StartWert, OLD.AktuellerWert, OLD.EndWert,
  OLD.Aktiviert, OLD.SortierIndex, OLD.IstNSchlVon, OLD.Maske FROM DUAL;

-- A change that only raises AktuellerWert, up to the end of the range, draws a number.
CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Kreise_vorher AFTER UPDATE
ON Nummernkreise FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert,
   EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske)
SELECT @vexnumkr_anwender, 'Nummernkreise', 'vorher',
  OLD.Buchungskreis, OLD.NSchl, OLD.NBezeichnung, OLD.StartWert, OLD.AktuellerWert, OLD.EndWert,
  OLD.Aktiviert, OLD.SortierIndex, OLD.IstNSchlVon, OLD.Maske FROM DUAL
WHERE NOT (OLD.Buchungskreis <=> NEW.Buchungskreis AND BINARY OLD.NSchl <=> BINARY NEW.NSchl
           AND BINARY OLD.NBezeichnung <=> BINARY NEW.NBezeichnung
           AND OLD.StartWert <=> NEW.StartWert AND OLD.EndWert <=> NEW.EndWert
           AND OLD.Aktiviert <=> NEW.Aktiviert AND OLD.SortierIndex <=> NEW.SortierIndex
           AND BINARY OLD.IstNSchlVon <=> BINARY NEW.IstNSchlVon
           AND BINARY OLD.Maske <=> BINARY NEW.Maske)
   OR NEW.AktuellerWert < OLD.AktuellerWert OR NEW.AktuellerWert > NEW.EndWert
   OR (OLD.AktuellerWert IS NULL) <> (NEW.AktuellerWert IS NULL);

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Kreise_nachher AFTER UPDATE
ON Nummernkreise FOR EACH ROW
FOLLOWS Nummernkreis_Protokoll_Kreise_vorher
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Buchungskreis, NSchl, NBezeichnung, StartWert, AktuellerWert,
   EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske)
SELECT @vexnumkr_anwender, 'Nummernkreise', 'nachher',
  NEW.Buchungskreis, NEW.NSchl, NEW.NBezeichnung, NEW.StartWert, NEW.AktuellerWert, NEW.EndWert,
  NEW.Aktiviert, NEW.SortierIndex, NEW.IstNSchlVon, NEW.Maske FROM DUAL
WHERE NOT (OLD.Buchungskreis <=> NEW.Buchungskreis AND BINARY OLD.NSchl <=> BINARY NEW.NSchl
           AND BINARY OLD.NBezeichnung <=> BINARY NEW.NBezeichnung
           AND OLD.StartWert <=> NEW.StartWert AND OLD.EndWert <=> NEW.EndWert
           AND OLD.Aktiviert <=> NEW.Aktiviert AND OLD.SortierIndex <=> NEW.SortierIndex
           AND BINARY OLD.IstNSchlVon <=> BINARY NEW.IstNSchlVon
           AND BINARY OLD.Maske <=> BINARY NEW.Maske)
   OR NEW.AktuellerWert < OLD.AktuellerWert OR NEW.AktuellerWert > NEW.EndWert
   OR (OLD.AktuellerWert IS NULL) <> (NEW.AktuellerWert IS NULL);

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Buchungskreise_neu AFTER INSERT
ON Nummernkreis_Buchungskreise FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, Buchungskreis, Beschreibung)
SELECT @vexnumkr_anwender, 'Nummernkreis_Buchungskreise', 'neu',
  NEW.Herkunft, NEW.Buchungskreis, NEW.Beschreibung FROM DUAL;

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Buchungskreise_weg AFTER DELETE
ON Nummernkreis_Buchungskreise FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, Buchungskreis, Beschreibung)
SELECT @vexnumkr_anwender, 'Nummernkreis_Buchungskreise', 'weg',
  OLD.Herkunft, OLD.Buchungskreis, OLD.Beschreibung FROM DUAL;

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Buchungskreise_vorher AFTER UPDATE
ON Nummernkreis_Buchungskreise FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, Buchungskreis, Beschreibung)
SELECT @vexnumkr_anwender, 'Nummernkreis_Buchungskreise', 'vorher',
  OLD.Herkunft, OLD.Buchungskreis, OLD.Beschreibung FROM DUAL
WHERE NOT (BINARY OLD.Herkunft <=> BINARY NEW.Herkunft
           AND OLD.Buchungskreis <=> NEW.Buchungskreis
           AND BINARY OLD.Beschreibung <=> BINARY NEW.Beschreibung);

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Buchungskreise_nachher AFTER UPDATE
ON Nummernkreis_Buchungskreise FOR EACH ROW
FOLLOWS Nummernkreis_Protokoll_Buchungskreise_vorher
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, Buchungskreis, Beschreibung)
SELECT @vexnumkr_anwender, 'Nummernkreis_Buchungskreise', 'nachher',
  NEW.Herkunft, NEW.Buchungskreis, NEW.Beschreibung FROM DUAL
WHERE NOT (BINARY OLD.Herkunft <=> BINARY NEW.Herkunft
           AND OLD.Buchungskreis <=> NEW.Buchungskreis
           AND BINARY OLD.Beschreibung <=> BINARY NEW.Beschreibung);

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Zuordnung_neu AFTER INSERT
ON Nummernkreis_Zuordnung FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, Buchungskreis, NSchl, Benutzer)
SELECT @vexnumkr_anwender, 'Nummernkreis_Zuordnung', 'neu',
  NEW.Herkunft, NEW.Buchungskreis, NEW.NSchl, NEW.Benutzer FROM DUAL;

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Zuordnung_weg AFTER DELETE
ON Nummernkreis_Zuordnung FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, Buchungskreis, NSchl, Benutzer)
SELECT @vexnumkr_anwender, 'Nummernkreis_Zuordnung', 'weg',
  OLD.Herkunft, OLD.Buchungskreis, OLD.NSchl, OLD.Benutzer FROM DUAL;

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Zuordnung_vorher AFTER UPDATE
ON Nummernkreis_Zuordnung FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, Buchungskreis, NSchl, Benutzer)
SELECT @vexnumkr_anwender, 'Nummernkreis_Zuordnung', 'vorher',
  OLD.Herkunft, OLD.Buchungskreis, OLD.NSchl, OLD.Benutzer FROM DUAL
WHERE NOT (BINARY OLD.Herkunft <=> BINARY NEW.Herkunft
           AND OLD.Buchungskreis <=> NEW.Buchungskreis AND BINARY OLD.NSchl <=> BINARY NEW.NSchl
           AND BINARY OLD.Benutzer <=> BINARY NEW.Benutzer);

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Zuordnung_nachher AFTER UPDATE
ON Nummernkreis_Zuordnung FOR EACH ROW
FOLLOWS Nummernkreis_Protokoll_Zuordnung_vorher
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, Buchungskreis, NSchl, Benutzer)
SELECT @vexnumkr_anwender, 'Nummernkreis_Zuordnung', 'nachher',
  NEW.Herkunft, NEW.Buchungskreis, NEW.NSchl, NEW.Benutzer FROM DUAL
WHERE NOT (BINARY OLD.Herkunft <=> BINARY NEW.Herkunft
           AND OLD.Buchungskreis <=> NEW.Buchungskreis AND BINARY OLD.NSchl <=> BINARY NEW.NSchl
           AND BINARY OLD.Benutzer <=> BINARY NEW.Benutzer);

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Sonderkreise_neu AFTER INSERT
ON Nummernkreis_Sonderkreise FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, U_NSchl, NSchl, NBezeichnung, Aktiviert)
SELECT @vexnumkr_anwender, 'Nummernkreis_Sonderkreise', 'neu',
  NEW.Herkunft, NEW.U_NSchl, NEW.NSchl, NEW.NBezeichnung, NEW.Aktiviert FROM DUAL;

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Sonderkreise_weg AFTER DELETE
ON Nummernkreis_Sonderkreise FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, U_NSchl, NSchl, NBezeichnung, Aktiviert)
SELECT @vexnumkr_anwender, 'Nummernkreis_Sonderkreise', 'weg',
  OLD.Herkunft, OLD.U_NSchl, OLD.NSchl, OLD.NBezeichnung, OLD.Aktiviert FROM DUAL;

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Sonderkreise_vorher AFTER UPDATE
ON Nummernkreis_Sonderkreise FOR EACH ROW
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, U_NSchl, NSchl, NBezeichnung, Aktiviert)
SELECT @vexnumkr_anwender, 'Nummernkreis_Sonderkreise', 'vorher',
  OLD.Herkunft, OLD.U_NSchl, OLD.NSchl, OLD.NBezeichnung, OLD.Aktiviert FROM DUAL
WHERE NOT (BINARY OLD.Herkunft <=> BINARY NEW.Herkunft
           AND BINARY OLD.U_NSchl <=> BINARY NEW.U_NSchl
           AND BINARY OLD.NSchl <=> BINARY NEW.NSchl
           AND BINARY OLD.NBezeichnung <=> BINARY NEW.NBezeichnung
           AND OLD.Aktiviert <=> NEW.Aktiviert);

CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Sonderkreise_nachher AFTER UPDATE
ON Nummernkreis_Sonderkreise FOR EACH ROW
FOLLOWS Nummernkreis_Protokoll_Sonderkreise_vorher
INSERT INTO Nummernkreis_Protokoll
  (Anwender, Tabelle, Aktion, Herkunft, U_NSchl, NSchl, NBezeichnung, Aktiviert)
SELECT @vexnumkr_anwender, 'Nummernkreis_Sonderkreise', 'nachher',
  NEW.Herkunft, NEW.U_NSchl, NEW.NSchl, NEW.NBezeichnung, NEW.Aktiviert FROM DUAL
WHERE NOT (BINARY OLD.Herkunft <=> BINARY NEW.Herkunft
           AND BINARY OLD.U_NSchl <=> BINARY NEW.U_NSchl
           AND BINARY OLD.NSchl <=> BINARY NEW.NSchl
           AND BINARY OLD.NBezeichnung <=> BINARY NEW.NBezeichnung
           AND OLD.Aktiviert <=> NEW.Aktiviert);
