#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

struct modPublic;

/// One variable of the store, by the name of its member: "Ias", "Engines(2).N1", "Vor1Id".
class StoreVariable {
 public:
  /// A number as the general form with a point, 1 or 0 for a flag, a text as it is.
  using Read = std::string (*)(const modPublic& store, int index);

  StoreVariable(std::string name, Read read, int index, bool isText)
      : name_(std::move(name)), read_(read), index_(index), isText_(isText) {}

  const std::string& name() const { return name_; }
  /// Not a number.
  bool isText() const { return isText_; }
  std::string value(const modPublic& store) const { return read_(store, index_); }

 private:
  std::string name_;
  Read read_;
  int index_;  ///< of an array's element
  bool isText_;
};

/// All of them, an array element by element.
const std::vector<StoreVariable>& storeVariables();
/// In any case of letters. Raises InvalidCall for a name that is none, with the nearest ones.
const StoreVariable& storeVariableNamed(std::string_view name);

}  // namespace vorlent
