#include "zelstudy/Tool.h"

int main(int argc, char** argv) { return zelstudy::runTool(argc, argv); }
