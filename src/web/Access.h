#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vorlent {

/// Who may see the page and command through it.
///
/// On loopback there is no token, and the page is known by this machine's own names alone: a
/// foreign name that was led to 127.0.0.1 gets nothing. On a network whoever has the token gets
/// everything, by whichever name he reaches the machine.
class Access {
 public:
  /// What a browser says of itself in the head of a request.
  struct Caller {
    std::string host;    ///< "Host"
    std::string origin;  ///< "Origin", empty when it has none
    std::string cookie;  ///< "Cookie"
  };
  enum class Verdict { Granted, UnknownHost, NoToken, OtherOrigin };

  /// An empty token is for loopback.
  Access(std::uint16_t port, std::string token);

  /// Of the page and its files.
  Verdict maySee(const Caller& caller) const;
  /// Of the connection that carries records and commands: only a page of ours may open it.
  Verdict mayConnect(const Caller& caller) const;

  bool isToken(std::string_view text) const;
  /// What a browser that knows the token is to keep: it comes back with every request of this site
  /// and of no other, and no script can read it.
  std::string cookie() const;

 private:
  bool isOwnName(std::string_view host) const;

  std::string port_;
  std::string token_;
};

/// 20 characters that are easily typed, of 100 random bits.
std::string randomToken();

/// Whether a "Host" can be told again in a header: letters, digits and ".-_:[]", nothing that would
/// end a part of it.
bool isHostText(std::string_view host);

/// Whether it stands for this machine alone.
bool isLoopback(std::string_view address);

}  // namespace vorlent
