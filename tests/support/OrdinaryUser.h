#pragma once

#include <unistd.h>

#include <cstdlib>

namespace vorlent {

/// Works as a user for whom permissions count, also when the tests run as root.
class OrdinaryUser {
 public:
  OrdinaryUser() : user_(geteuid()) {
    constexpr uid_t Nobody = 65534;
    if (user_ == 0) changed_ = seteuid(Nobody) == 0;
  }
  ~OrdinaryUser() {
    if (changed_ && seteuid(user_) != 0) std::abort();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  uid_t user_;
  bool changed_ = false;
};

}  // namespace vorlent
