-- A small company: two booking circles, two users, two document types.
INSERT INTO tblUser VALUES ('Anna'), ('Max');
INSERT INTO Nummernkreis_Buchungskreise VALUES (1, 'Nord', 'ORC'), (2, 'Süd', 'ORC');
INSERT INTO Nummernkreise VALUES
  (0, 'AN', 'Angebot', 1, 1, 99, -1, 10, NULL, NULL),
  (1, 'AN', 'Angebot', 100, 120, 199, -1, 10, NULL, 'JNN'),
  (0, 'RE', 'Rechnung', 1, 5, 99, -1, 20, NULL, NULL),
  (1, 'RE', 'Rechnung', 100, 100, 199, -1, 20, NULL, NULL),
  (2, 'RE', 'Rechnung', 200, 200, 299, 0, 20, NULL, NULL);
INSERT INTO Nummernkreis_Zuordnung VALUES (1, 'AN', 'Anna', 'ORC');
