-- What the user "nummernkreise" needs to work with the dialog on MariaDB, and nothing beyond. To be
-- run by an administrator, in the database that holds the tables. The rights to the settings table
-- are for hosts that keep their settings there.
GRANT SELECT, INSERT, UPDATE, DELETE ON Nummernkreise TO nummernkreise;
GRANT SELECT, INSERT, UPDATE, DELETE ON Nummernkreis_Zuordnung TO nummernkreise;
GRANT SELECT, INSERT, UPDATE, DELETE ON Nummernkreis_Buchungskreise TO nummernkreise;
GRANT SELECT, UPDATE ON Nummernkreis_Sonderkreise TO nummernkreise;
GRANT SELECT ON tblUser TO nummernkreise;
GRANT SELECT, INSERT, UPDATE, DELETE ON Einstellungen TO nummernkreise;
