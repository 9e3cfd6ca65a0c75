# The database engines, each with a folder of that name in src/engines and in src/app/schema. An
# unknown server is asked for its kind in this order, so those that share a question go together.
set(VEXNUMKR_ENGINE_NAMES
  postgresql
  mariadb
  sqlite)
