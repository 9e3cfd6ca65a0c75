#!/usr/bin/env bash
# Runs a test program under Wine, beside a database of its own.
#
#   tests/automation/wine/program_test.sh WORLD SERVER PROGRAM
. "$(dirname "$0")/steps.sh" "$1"

make_database
export VEXNUMKR_TEST_CONNECTION="$connection" VEXNUMKR_SERVER="Z:${2//\//\\}"
exec wine "$3"
