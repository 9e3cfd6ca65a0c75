-- The five tables in which a host keeps its document number ranges, for SQLite.
--
-- Booleans are small integers that hold 0 (no) and -1 (yes). Texts are compared
-- exactly, so "re" and "RE" are two number keys.

-- One number range per booking circle and number key. Booking circle 0 is the standard range of its
-- key. AktuellerWert is the number last issued.
CREATE TABLE Nummernkreise (
  Buchungskreis  INTEGER NOT NULL,
  NSchl          VARCHAR(10) NOT NULL,
  NBezeichnung   VARCHAR(60),
  StartWert      INTEGER,
  AktuellerWert  INTEGER,
  EndWert        INTEGER,
  Aktiviert      SMALLINT,
  SortierIndex   INTEGER,
  IstNSchlVon    VARCHAR(10),
  Maske          VARCHAR(40),
  PRIMARY KEY (Buchungskreis, NSchl)
);

-- The booking circles of each origin. A number that both origins list is shared by them.
CREATE TABLE Nummernkreis_Buchungskreise (
  Buchungskreis  INTEGER NOT NULL,
  Beschreibung   VARCHAR(60),
  Herkunft       VARCHAR(3) NOT NULL,
  PRIMARY KEY (Herkunft, Buchungskreis)
);

-- Which range is active for whom; the user "ALL" stands for everybody.
CREATE TABLE Nummernkreis_Zuordnung (
  Buchungskreis  INTEGER,
  NSchl          VARCHAR(10),
  Benutzer       VARCHAR(40),
  Herkunft       VARCHAR(3)
);

CREATE INDEX Nummernkreis_Zuordnung_Alle
  ON Nummernkreis_Zuordnung (Buchungskreis, NSchl, Benutzer, Herkunft);

-- Additional number keys that draw from the range of another key and can be switched on and off.
CREATE TABLE Nummernkreis_Sonderkreise (
  U_NSchl        VARCHAR(10) NOT NULL,
  NSchl          VARCHAR(10),
  NBezeichnung   VARCHAR(60),
  Aktiviert      SMALLINT,
  Herkunft       VARCHAR(3) NOT NULL,
  PRIMARY KEY (Herkunft, U_NSchl)
);

-- The users of the host.
CREATE TABLE tblUser (
  strUserName_PK VARCHAR(40) NOT NULL,
  PRIMARY KEY (strUserName_PK)
);
