#include "cli/program/program.h"

int main(int argc, char** argv) { return vexnumkr::cli::runProgram(argc, argv); }
