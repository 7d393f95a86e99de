#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace vorlent {

using namespace std::chrono_literals;

/// A connection to the page's server by the system's own sockets: what is sent and what comes are
/// bytes.
class PageLink {
 public:
  explicit PageLink(std::uint16_t port);
  ~PageLink();
  PageLink(const PageLink&) = delete;
  PageLink& operator=(const PageLink&) = delete;

  /// "GET <target>" and the header lines, "Host" among them.
  void get(const std::string& target, const std::string& headers) const;
  /// Asks to become a WebSocket, for a page from `origin`.
  void upgrade(const std::string& host, const std::string& origin) const;
  /// A text as a browser sends it: one frame with a mask (RFC 6455, section 5.2).
  void sendText(const std::string& text) const;

  /// True as soon as this has come; false when the connection ends without it, or the time.
  bool comes(const std::string& part, std::chrono::milliseconds limit = 20s);
  /// True as soon as the other side has closed.
  bool ends(std::chrono::milliseconds limit = 20s);
  const std::string& received() const { return received_; }
  /// What has come so far counts no more.
  void forget() { received_.clear(); }

 private:
  enum class Turn { More, End, Late };

  void send(const std::string& bytes) const;
  Turn readMore(std::chrono::steady_clock::time_point until);

  std::uintptr_t socket_;
  std::string received_;
};

/// The first line of the answer, without its end.
std::string statusLine(std::uint16_t port, const std::string& target, const std::string& headers);

}  // namespace vorlent
