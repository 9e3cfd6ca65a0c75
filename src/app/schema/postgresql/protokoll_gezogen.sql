-- The journal with the numbers that hosts draw, too; to be run behind protokoll.sql. A blank line ends
-- each statement.
CREATE OR REPLACE TRIGGER Nummernkreis_Protokoll_Kreise_geaendert AFTER UPDATE
ON Nummernkreise FOR EACH ROW
WHEN ((OLD.Buchungskreis, OLD.NSchl, OLD.NBezeichnung, OLD.StartWert, OLD.AktuellerWert,
       OLD.EndWert, OLD.Aktiviert, OLD.SortierIndex, OLD.IstNSchlVon, OLD.Maske) IS DISTINCT FROM
      (NEW.Buchungskreis, NEW.NSchl, NEW.NBezeichnung, NEW.StartWert, NEW.AktuellerWert,
       NEW.EndWert, NEW.Aktiviert, NEW.SortierIndex, NEW.IstNSchlVon, NEW.Maske))
EXECUTE FUNCTION Nummernkreis_Protokoll_Kreise();
