-- The journal with the numbers that hosts draw, too; to be run behind protokoll.sql. A blank line ends
-- each statement.
DROP TRIGGER IF EXISTS Nummernkreis_Protokoll_Kreise_geaendert;

CREATE TRIGGER Nummernkreis_Protokoll_Kreise_geaendert AFTER UPDATE
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
