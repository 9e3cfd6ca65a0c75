-- Ends the journal; its entries stay in the table Nummernkreis_Protokoll. A blank line ends each
-- statement.
DROP FUNCTION IF EXISTS Nummernkreis_Protokoll_Kreise() CASCADE;

DROP FUNCTION IF EXISTS Nummernkreis_Protokoll_Buchungskreise() CASCADE;

DROP FUNCTION IF EXISTS Nummernkreis_Protokoll_Zuordnung() CASCADE;

DROP FUNCTION IF EXISTS Nummernkreis_Protokoll_Sonderkreise() CASCADE;

DROP FUNCTION IF EXISTS Nummernkreis_Protokoll_bleibt() CASCADE;
