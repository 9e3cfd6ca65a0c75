#include "app/program/host_program.h"

int main(int argc, char** argv) { return vexnumkr::app::runHost(argc, argv); }
