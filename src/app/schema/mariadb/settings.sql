-- The settings of the host: a text per section, key, profile and user.
CREATE TABLE Einstellungen (
  Bereich        VARCHAR(60) NOT NULL,
  Schluessel     VARCHAR(60) NOT NULL,
  Profil         VARCHAR(60) NOT NULL,
  Benutzer       VARCHAR(60) NOT NULL,
  Wert           VARCHAR(250),
  PRIMARY KEY (Bereich, Schluessel, Profil, Benutzer)
) ENGINE = InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin;
