#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "base/controls.h"

namespace vorlent {

struct StickContext;

/// Whether a record whose name begins with "#" is switched off.
enum class HashRows { Skipped, Listed };

/// The records of a catalogue, a name and a code each, in the order of the file. Ends before the
/// first malformed one; `fault` then says what is wrong with it.
std::vector<ComboBox::Item> readCatalogue(std::string_view text, HashRows hashRows,
                                          std::string& fault);

/// Fills the boxes from a catalogue in the program folder. One that is missing ends the process
/// with its message; one that goes wrong ends there, and the status line says so.
void loadCatalogue(const StickContext& context, const std::string& fileName, HashRows hashRows,
                   std::initializer_list<ComboBox*> boxes);

}  // namespace vorlent
