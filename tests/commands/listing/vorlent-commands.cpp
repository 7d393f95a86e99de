// Prints docs/commands.md.
#include <cstdio>

#include "commands/listing/commandListing.h"

int main() { return std::fputs(vorlent::commandListing().c_str(), stdout) < 0 ? 1 : 0; }
