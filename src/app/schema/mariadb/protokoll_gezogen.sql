-- The journal with the numbers that hosts draw, too; to be run behind protokoll.sql. A blank line ends
-- each statement.
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
           AND OLD.StartWert <=> NEW.StartWert AND OLD.AktuellerWert <=> NEW.AktuellerWert
           AND OLD.EndWert <=> NEW.EndWert AND OLD.Aktiviert <=> NEW.Aktiviert
           AND OLD.SortierIndex <=> NEW.SortierIndex
           AND BINARY OLD.IstNSchlVon <=> BINARY NEW.IstNSchlVon
           AND BINARY OLD.Maske <=> BINARY NEW.Maske);

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
           AND OLD.StartWert <=> NEW.StartWert AND OLD.AktuellerWert <=> NEW.AktuellerWert
           AND OLD.EndWert <=> NEW.EndWert AND OLD.Aktiviert <=> NEW.Aktiviert
           AND OLD.SortierIndex <=> NEW.SortierIndex
           AND BINARY OLD.IstNSchlVon <=> BINARY NEW.IstNSchlVon
           AND BINARY OLD.Maske <=> BINARY NEW.Maske);
