#include "support/places.h"

namespace vorlent {

std::string dataFolder() { return VORLENT_SOURCES "/data"; }
std::string docsFolder() { return VORLENT_SOURCES "/docs"; }
std::string testsFolder() { return VORLENT_SOURCES "/tests"; }
std::string programsFolder() { return VORLENT_PROGRAMS; }

}  // namespace vorlent
