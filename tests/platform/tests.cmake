vexnumkr_test(platform/value_test LABEL unit LINKS vexnumkr_platform)
vexnumkr_test(platform/sql_tokens_test LABEL unit LINKS vexnumkr_platform)
vexnumkr_test(platform/statement_gate_test LABEL unit
  SOURCES contract/database_language.cpp LINKS vexnumkr_platform)
vexnumkr_test(platform/connection_string_test LABEL unit
  SOURCES contract/database_language.cpp LINKS vexnumkr_platform)
vexnumkr_test(platform/connection_passwords_test LABEL unit LINKS vexnumkr_platform)
