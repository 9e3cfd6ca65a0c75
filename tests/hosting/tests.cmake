vexnumkr_test(hosting/reporting_test LABEL unit LINKS vexnumkr_hosting)
vexnumkr_core_test(hosting/host_context_test unit)
vexnumkr_core_test(hosting/start_up_test unit)
vexnumkr_core_test(hosting/component_test unit)
