#pragma once

#include <stdexcept>
#include <string>

namespace vorlent {

/// A fault with the number and description that users know from the status line and from message
/// boxes. The socket errors (10035, 10047 to 10049) travel in the same type.
class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(int number) : RuntimeError(number, standardDescription(number)) {}
  RuntimeError(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}

  int number() const { return number_; }
  std::string description() const { return what(); }

  static constexpr int InvalidCall = 5;
  static constexpr int Overflow = 6;
  static constexpr int SubscriptOutOfRange = 9;
  static constexpr int DivisionByZero = 11;
  static constexpr int TypeMismatch = 13;
  /// What the libraries below raise, with their words.
  static constexpr int InternalError = 51;
  static constexpr int BadFileName = 52;
  static constexpr int FileNotFound = 53;
  static constexpr int DiskFull = 61;
  static constexpr int InputPastEnd = 62;
  static constexpr int PermissionDenied = 70;
  static constexpr int PathAccess = 75;
  static constexpr int PathNotFound = 76;
  static constexpr int ObjectNotSet = 91;

 private:
  static std::string standardDescription(int number);

  int number_;
};

}  // namespace vorlent
