#pragma once

#include <libsmbclient.h>
#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/NetworkPath.h"

namespace vorlent {

/// The files of other machines by libsmbclient. Calls wait as long as that library waits; a
/// connection is kept for the next call.
class ShareClient {
 public:
  struct Account {
    std::string user;  ///< empty: nobody in particular
    std::string password;
    std::string domain;
    std::uint16_t port = 0;  ///< 0: the usual
  };
  /// Unreachable: the host itself was the obstacle, not the file.
  enum class Outcome { Done, None, TooLarge, Unreachable };

  explicit ShareClient(Account account);

  Outcome exists(const NetworkPath& path);
  Outcome read(const NetworkPath& path, std::size_t limit_bytes, std::string& content);
  Outcome write(const NetworkPath& path, const std::string& content);
  Outcome remove(const NetworkPath& path);

 private:
  struct Freeing {
    void operator()(SMBCCTX* context) const;
  };
  class File;

  bool look(const std::string& url, struct stat& found);
  Outcome attempt(const std::function<Outcome()>& work);
  Outcome readFrom(File& file, std::size_t limit_bytes, std::string& content);

  Account account_;
  std::unique_ptr<SMBCCTX, Freeing> context_;
};

/// The path as libsmbclient takes it.
std::string smbUrl(const NetworkPath& path);

}  // namespace vorlent
