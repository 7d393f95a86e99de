#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>

namespace vorlent {

/// What is wrong with a database, in a sentence for the status bar.
struct DatabaseFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The first row of the table in the Access database that these bytes are: the texts of its fields
/// by their names, numbers with a decimal point and all their digits, yes as -1. A field without a
/// value is missing, as is one that is neither text nor number. Deleted rows are passed over.
/// Nothing when the table is empty. Raises DatabaseFault; may hang, or crash, on bytes that look
/// like a database and are none.
std::optional<std::map<std::string, std::string>> firstRow(std::string bytes,
                                                           const std::string& table);

}  // namespace vorlent
