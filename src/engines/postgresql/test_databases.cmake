# How the tests make a database of their own on PostgreSQL, and by which ways they reach it.
vexnumkr_test_engine(postgresql
  USER vexnumkr
  ADMINISTRATION "Driver=QPSQL;Server=%folder%;Database=postgres;UID=vexnumkr"
  CREATE "CREATE DATABASE %name%"
  DROP "DROP DATABASE %name% WITH (FORCE)")
vexnumkr_test_way(postgresql postgresql "Driver=QPSQL;Server=%folder%;Database=%name%")
vexnumkr_test_way(odbc-postgresql postgresql
  [[Driver=QODBC;Database="DRIVER={PostgreSQL Unicode};Servername=%folder%;Port=5432;Database=%name%"]])
