#include "base/RuntimeError.h"

namespace vorlent {

std::string RuntimeError::standardDescription(int number) {
  switch (number) {
    case InvalidCall:
      return "Invalid procedure call or argument";
    case Overflow:
      return "Overflow";
    case SubscriptOutOfRange:
      return "Subscript out of range";
    case DivisionByZero:
      return "Division by zero";
    case TypeMismatch:
      return "Type mismatch";
    case BadFileName:
      return "Bad file name or number";
    case FileNotFound:
      return "File not found";
    case DiskFull:
      return "Disk full";
    case InputPastEnd:
      return "Input past end of file";
    case PermissionDenied:
      return "Permission denied";
    case PathAccess:
      return "Path/File access error";
    case PathNotFound:
      return "Path not found";
    case ObjectNotSet:
      return "Object variable or With block variable not set";
    default:
      return "Application-defined or object-defined error";
  }
}

}  // namespace vorlent
