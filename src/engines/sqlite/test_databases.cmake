# By which ways the tests reach a database of their own on SQLite; %name% is a new file.
vexnumkr_test_engine(sqlite)
vexnumkr_test_way(sqlite sqlite "Driver=QSQLITE;Database=%name%")
vexnumkr_test_way(odbc-sqlite sqlite
  [[Driver=QODBC;Database="DRIVER={SQLite3};Database=%name%;NoCreat=1"]])
