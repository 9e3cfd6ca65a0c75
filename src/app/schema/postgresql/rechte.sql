-- What the user "nummernkreise" needs to work with the dialog on PostgreSQL, and nothing beyond.
-- To be run by the owner of the tables, in the database that holds them. The rights to the
-- settings table are for hosts that keep their settings there.
GRANT SELECT, INSERT, UPDATE, DELETE ON Nummernkreise, Nummernkreis_Zuordnung TO nummernkreise;
GRANT SELECT, INSERT, UPDATE, DELETE ON Nummernkreis_Buchungskreise TO nummernkreise;
GRANT SELECT, UPDATE ON Nummernkreis_Sonderkreise TO nummernkreise;
GRANT SELECT ON tblUser TO nummernkreise;
GRANT SELECT, INSERT, UPDATE, DELETE ON Einstellungen TO nummernkreise;
