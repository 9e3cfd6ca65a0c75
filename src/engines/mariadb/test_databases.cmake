# How the tests make a database of their own on MariaDB, and by which way they reach it.
vexnumkr_test_engine(mariadb
  USER root
  ADMINISTRATION "Driver=QMYSQL;Server=%folder%/socket;Database=mysql;UID=root"
  CREATE "CREATE DATABASE %name% CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin"
  DROP "DROP DATABASE %name%")
vexnumkr_test_way(mariadb mariadb "Driver=QMYSQL;Server=%folder%/socket;Database=%name%")
