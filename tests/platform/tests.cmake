vexnumkr_test(platform/value_test LABEL unit LINKS vexnumkr_platform)
