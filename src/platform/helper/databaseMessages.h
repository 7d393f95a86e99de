#pragma once

#include <string>

/// The words between the server and vorlent-mdb. The question is the database's bytes.
namespace vorlent::databaseMessages {

inline const std::string Row = "row";  ///< and a name and a text for each field that has a value
inline const std::string Empty = "empty";  ///< the table has no row
inline const std::string Fault = "fault";  ///< and what is wrong with the database

}  // namespace vorlent::databaseMessages
