-- Ends the journal; its entries stay in the table Nummernkreis_Protokoll. A blank line ends each
-- statement.
DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_bleibt;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_behaelt;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_ersetzt;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Kreise_neu;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Kreise_weg;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Kreise_geaendert;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Buchungskreise_neu;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Buchungskreise_weg;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Buchungskreise_geaendert;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Zuordnung_neu;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Zuordnung_weg;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Zuordnung_geaendert;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Sonderkreise_neu;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Sonderkreise_weg;

DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Sonderkreise_geaendert;
