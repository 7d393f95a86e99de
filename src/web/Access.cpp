#include "web/Access.h"

#include <algorithm>
#include <random>
#include <utility>

#include "base/text.h"

namespace vorlent {
namespace {

constexpr int TokenLength = 20;
/// Without those that look like others.
constexpr std::string_view TokenCharacters = "abcdefghijkmnpqrstuvwxyz23456789";
static_assert(TokenCharacters.size() == 32);

/// Takes as long for a wrong first character as for a wrong last one.
bool sameSecret(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  unsigned different = 0;
  for (std::size_t i = 0; i < a.size(); ++i) different |= static_cast<unsigned char>(a[i] ^ b[i]);
  return different == 0;
}

/// The value of one cookie of a "Cookie" header, empty without it.
std::string_view cookieValue(std::string_view header, std::string_view name) {
  while (!header.empty()) {
    const auto end = std::min(header.find(';'), header.size());
    std::string_view pair = header.substr(0, end);
    header.remove_prefix(std::min(end + 1, header.size()));
    pair.remove_prefix(std::min(pair.find_first_not_of(' '), pair.size()));
    if (pair.starts_with(name) && pair.substr(name.size()).starts_with('='))
      return pair.substr(name.size() + 1);
  }
  return {};
}

/// Browsers send the cookies of a machine to all of its ports.
std::string cookieName(std::string_view port) { return "vorlent-web-" + std::string(port); }

}  // namespace

Access::Access(std::uint16_t port, std::string token)
    : port_(std::to_string(port)), token_(std::move(token)) {}

Access::Verdict Access::maySee(const Caller& caller) const {
  if (token_.empty()) return isOwnName(caller.host) ? Verdict::Granted : Verdict::UnknownHost;
  return isToken(cookieValue(caller.cookie, cookieName(port_))) ? Verdict::Granted
                                                                : Verdict::NoToken;
}

Access::Verdict Access::mayConnect(const Caller& caller) const {
  const Verdict seen = maySee(caller);
  if (seen != Verdict::Granted) return seen;
  return equalIgnoringCase(caller.origin, "http://" + caller.host) ? Verdict::Granted
                                                                   : Verdict::OtherOrigin;
}

bool Access::isToken(std::string_view text) const {
  return !token_.empty() && sameSecret(text, token_);
}

std::string Access::cookie() const {
  return cookieName(port_) + "=" + token_ + "; Path=/; HttpOnly; SameSite=Strict";
}

bool Access::isOwnName(std::string_view host) const {
  for (const std::string_view name : {"localhost", "127.0.0.1", "[::1]"})
    if (equalIgnoringCase(host, std::string(name) + ":" + port_)) return true;
  return false;
}

std::string randomToken() {
  std::random_device random;
  std::uniform_int_distribution<std::size_t> place(0, TokenCharacters.size() - 1);
  std::string token;
  for (int i = 0; i < TokenLength; ++i) token += TokenCharacters[place(random)];
  return token;
}

bool isHostText(std::string_view host) {
  return std::all_of(host.begin(), host.end(), [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
           std::string_view(".-_:[]").find(c) != std::string_view::npos;
  });
}

bool isLoopback(std::string_view address) { return address.starts_with("127."); }

}  // namespace vorlent
