-- The settings of the host: a text per section, key, profile and user.
CREATE TABLE Einstellungen (
  Bereich        VARCHAR(60) COLLATE "C" NOT NULL,
  Schluessel     VARCHAR(60) COLLATE "C" NOT NULL,
  Profil         VARCHAR(60) COLLATE "C" NOT NULL,
  Benutzer       VARCHAR(60) COLLATE "C" NOT NULL,
  Wert           VARCHAR(250) COLLATE "C",
  PRIMARY KEY (Bereich, Schluessel, Profil, Benutzer)
);
