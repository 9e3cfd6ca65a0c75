-- The five tables in which a host keeps its document number ranges, for MariaDB.
--
-- The names of tables have to be spelled as they are here where files have to as well. Booleans are
-- small integers that hold 0 (no) and -1 (yes). Texts are compared by code points, blanks at their
-- ends included, so "re" and "RE" are two number keys. InnoDB has the transactions.

-- One number range per booking circle and number key. Booking circle 0 is the standard range of its
-- key. AktuellerWert is the number last issued.
CREATE TABLE Nummernkreise (
  Buchungskreis  INTEGER NOT NULL,
  NSchl          VARCHAR(10) NOT NULL,
  NBezeichnung   MEDIUMTEXT,
  StartWert      INTEGER,
  AktuellerWert  INTEGER,
  EndWert        INTEGER,
  Aktiviert      SMALLINT,
  SortierIndex   INTEGER,
  IstNSchlVon    VARCHAR(10),
  Maske          MEDIUMTEXT,
  PRIMARY KEY (Buchungskreis, NSchl)
) ENGINE = InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

-- The booking circles of each origin. A number that both origins list is shared by them.
CREATE TABLE Nummernkreis_Buchungskreise (
  Buchungskreis  INTEGER NOT NULL,
  Beschreibung   MEDIUMTEXT,
  Herkunft       VARCHAR(3) NOT NULL,
  PRIMARY KEY (Herkunft, Buchungskreis)
) ENGINE = InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

-- Which range is active for whom; the user "ALL" stands for everybody. Zeile is for clusters, which
-- need a primary key to tell rows apart; no statement sees it.
CREATE TABLE Nummernkreis_Zuordnung (
  Buchungskreis  INTEGER,
  NSchl          VARCHAR(10),
  Benutzer       VARCHAR(40),
  Herkunft       VARCHAR(3),
  Zeile          BIGINT UNSIGNED NOT NULL AUTO_INCREMENT INVISIBLE,
  PRIMARY KEY (Zeile)
) ENGINE = InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

CREATE INDEX Nummernkreis_Zuordnung_Alle
  ON Nummernkreis_Zuordnung (Buchungskreis, NSchl, Benutzer, Herkunft);

-- Additional number keys that draw from the range of another key and can be switched on and off.
CREATE TABLE Nummernkreis_Sonderkreise (
  U_NSchl        VARCHAR(10) NOT NULL,
  NSchl          VARCHAR(10),
  NBezeichnung   MEDIUMTEXT,
  Aktiviert      SMALLINT,
  Herkunft       VARCHAR(3) NOT NULL,
  PRIMARY KEY (Herkunft, U_NSchl)
) ENGINE = InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;

-- The users of the host.
CREATE TABLE tblUser (
  strUserName_PK VARCHAR(40) NOT NULL,
  PRIMARY KEY (strUserName_PK)
) ENGINE = InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;
