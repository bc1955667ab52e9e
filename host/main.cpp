// The orvane command. All of it stands in the library host, where tests reach it.
#include "host/CommandLine.h"

int main(int count, char** arguments) { return orvane::host::commandLine(count, arguments); }
