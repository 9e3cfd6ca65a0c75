vexnumkr_test(engines/sql_dialects_test LABEL unit LINKS vexnumkr_engines)
vexnumkr_test(engines/locked_failures_test LABEL unit LINKS vexnumkr_numbers)
