#include "share/ShareClient.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <string_view>
#include <utility>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

using Outcome = ShareClient::Outcome;

/// What the file itself may be the reason of; any other failure is the host's or the network's.
constexpr std::array FileErrors{ENOENT, EACCES, EPERM, EISDIR,  ENOTDIR,     EEXIST,
                                EROFS,  ENOSPC, EBUSY, ETXTBSY, ENAMETOOLONG};
/// A connection that was kept from an earlier call, and that the host has closed since.
constexpr std::array ConnectionErrors{ECONNABORTED, ECONNRESET, EPIPE, ENOTCONN};

template <class Errors>
bool isOneOf(const Errors& errors, int number) {
  return std::find(errors.begin(), errors.end(), number) != errors.end();
}

void copyText(const std::string& text, char* to, int size) {
  std::snprintf(to, static_cast<std::size_t>(size), "%s", text.c_str());
}

void giveAccount(SMBCCTX* context, const char*, const char*, char* domain, int domainSize,
                 char* user, int userSize, char* password, int passwordSize) {
  const auto& account = *static_cast<const ShareClient::Account*>(smbc_getOptionUserData(context));
  if (!account.domain.empty()) copyText(account.domain, domain, domainSize);
  copyText(account.user, user, userSize);
  copyText(account.password, password, passwordSize);
}

void appendEncoded(std::string& url, std::string_view name) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  constexpr std::string_view Plain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.";
  for (const char c : name) {
    if (Plain.find(c) != std::string_view::npos) {
      url += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    url += '%';
    url += Digits[byte / 16];
    url += Digits[byte % 16];
  }
}

}  // namespace

std::string smbUrl(const NetworkPath& path) {
  std::string url = "smb://" + path.host;
  for (const std::string& name : path.names) {
    url += '/';
    appendEncoded(url, name);
  }
  return url;
}

void ShareClient::Freeing::operator()(SMBCCTX* context) const {
  constexpr int WithOpenFiles = 1;
  smbc_free_context(context, WithOpenFiles);
}

/// An open file; false when it could not be opened, with the reason in `errno`.
class ShareClient::File {
 public:
  File(SMBCCTX* context, const std::string& url, int flags)
      : context_(context),
        file_(smbc_getFunctionOpen(context)(context, url.c_str(), flags, 0666)) {}
  ~File() {
    const int reason = errno;
    close();
    errno = reason;
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  explicit operator bool() const { return file_ != nullptr; }
  bool stat(struct stat& found) const {
    return smbc_getFunctionFstat(context_)(context_, file_, &found) == 0;
  }
  ssize_t read(char* to, std::size_t most) const {
    return smbc_getFunctionRead(context_)(context_, file_, to, most);
  }
  ssize_t write(std::string_view bytes) const {
    return smbc_getFunctionWrite(context_)(context_, file_, bytes.data(), bytes.size());
  }
  bool close() {
    SMBCFILE* const file = std::exchange(file_, nullptr);
    return file == nullptr || smbc_getFunctionClose(context_)(context_, file) == 0;
  }

 private:
  SMBCCTX* context_;
  SMBCFILE* file_;
};

ShareClient::ShareClient(Account account)
    : account_(std::move(account)), context_(smbc_new_context()) {
  SMBCCTX* const context = context_.get();
  if (context == nullptr) throw RuntimeError(RuntimeError::InternalError);
  smbc_setDebug(context, 0);
  smbc_setPort(context, account_.port);
  smbc_setOptionUserData(context, &account_);
  smbc_setFunctionAuthDataWithContext(context, giveAccount);
  // Whom the host does not know by his password is not let in as nobody instead.
  smbc_setOptionNoAutoAnonymousLogin(context, !account_.user.empty());
  if (smbc_init_context(context) == nullptr) throw RuntimeError(RuntimeError::InternalError);
}

/// What stat() says; nothing is there when it is false.
bool ShareClient::look(const std::string& url, struct stat& found) {
  return smbc_getFunctionStat(context_.get())(context_.get(), url.c_str(), &found) == 0;
}

Outcome ShareClient::exists(const NetworkPath& path) {
  return attempt([&] {
    struct stat found {};
    return look(smbUrl(path), found) ? Outcome::Done : Outcome::None;
  });
}

Outcome ShareClient::read(const NetworkPath& path, std::size_t limit_bytes, std::string& content) {
  return attempt([&] {
    File file(context_.get(), smbUrl(path), O_RDONLY);
    return file ? readFrom(file, limit_bytes, content) : Outcome::None;
  });
}

Outcome ShareClient::readFrom(File& file, std::size_t limit_bytes, std::string& content) {
  constexpr std::size_t Piece_bytes = 1 << 20;
  struct stat found {};
  if (!file.stat(found)) return Outcome::None;
  if (static_cast<std::uintmax_t>(found.st_size) > limit_bytes) return Outcome::TooLarge;
  std::size_t size = 0;
  for (ssize_t count = 1; count > 0; size += static_cast<std::size_t>(count)) {
    if (size > limit_bytes) return Outcome::TooLarge;
    content.resize(size + Piece_bytes);
    count = file.read(content.data() + size, Piece_bytes);
    if (count < 0) return Outcome::None;
  }
  content.resize(size);
  return Outcome::Done;
}

/// Over the file that is there: on a share, to put another in its place would leave none for a
/// moment.
Outcome ShareClient::write(const NetworkPath& path, const std::string& content) {
  return attempt([&] {
    File file(context_.get(), smbUrl(path), O_WRONLY | O_CREAT | O_TRUNC);
    if (!file) return Outcome::None;
    for (std::string_view rest = content; !rest.empty();) {
      const ssize_t count = file.write(rest);
      if (count <= 0) return Outcome::None;
      rest.remove_prefix(static_cast<std::size_t>(count));
    }
    return file.close() ? Outcome::Done : Outcome::None;
  });
}

/// To the library a folder is a file that can be removed, if it is empty.
Outcome ShareClient::remove(const NetworkPath& path) {
  return attempt([&] {
    const std::string url = smbUrl(path);
    struct stat found {};
    if (!look(url, found) || S_ISDIR(found.st_mode)) return Outcome::None;
    return smbc_getFunctionUnlink(context_.get())(context_.get(), url.c_str()) == 0 ? Outcome::Done
                                                                                    : Outcome::None;
  });
}

/// A second time where a kept connection turned out to be gone. None becomes Unreachable by the
/// library's reason for it.
Outcome ShareClient::attempt(const std::function<Outcome()>& work) {
  errno = 0;
  Outcome outcome = work();
  if (outcome == Outcome::None && isOneOf(ConnectionErrors, errno)) {
    errno = 0;
    outcome = work();
  }
  const bool hosts = errno != 0 && !isOneOf(FileErrors, errno);
  return outcome == Outcome::None && hosts ? Outcome::Unreachable : outcome;
}

}  // namespace vorlent
