#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace vorlent {

/// Sets an environment variable, or takes it away, and puts it back at the end.
class ScopedEnvironment {
 public:
  ScopedEnvironment(std::string name, const std::optional<std::string>& value)
      : name_(std::move(name)) {
    if (const char* former = std::getenv(name_.c_str())) former_ = former;
    put(value);
  }
  ~ScopedEnvironment() { put(former_); }
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

 private:
  void put(const std::optional<std::string>& value) const {
    if (value)
      setenv(name_.c_str(), value->c_str(), 1);
    else
      unsetenv(name_.c_str());
  }

  std::string name_;
  std::optional<std::string> former_;
};

}  // namespace vorlent
