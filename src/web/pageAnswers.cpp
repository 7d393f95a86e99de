#include "web/pageAnswers.h"

namespace vorlent {
namespace {

constexpr const char* TokenAsked =
    "This page asks for a token. Open the address that vorlent-web printed when it started, or "
    "scan its QR code.";
constexpr const char* HostUnknown =
    "This page is served to this machine alone, under the names localhost and 127.0.0.1.";

PageAnswer plain(int status, const char* text) {
  return {status, {"text/plain; charset=utf-8", text}};
}

/// Scripts, styles and connections of this place alone, and nobody frames the page.
std::string contentPolicy(const std::string& host) {
  return "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; "
         "manifest-src 'self'; connect-src 'self' ws://" +
         host + "; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";
}

PageAnswer withoutPolicy(const PageRequest& request, const std::optional<Access>& access,
                         const PageFiles& files) {
  if (!request.isGet) return plain(405, "Only GET is answered here.");
  if (access && access->isToken(request.token))
    return {303, {"text/plain", ""}, {{"Location", "/"}, {"Set-Cookie", access->cookie()}}};
  const auto verdict = access ? access->maySee(request.caller) : Access::Verdict::NoToken;
  if (verdict == Access::Verdict::UnknownHost) return plain(421, HostUnknown);
  if (verdict != Access::Verdict::Granted) return plain(401, TokenAsked);
  const auto file = files(request.path);
  if (!file) return plain(404, "There is no such file.");
  return {200, *file};
}

}  // namespace

PageAnswer answerTo(const PageRequest& request, const std::optional<Access>& access,
                    const PageFiles& files) {
  PageAnswer answer = withoutPolicy(request, access, files);
  const std::string& host = request.caller.host;
  for (const auto& header :
       {std::pair<const char*, std::string>{"Content-Security-Policy",
                                            contentPolicy(isHostText(host) ? host : "")},
        {"X-Content-Type-Options", "nosniff"},
        {"Referrer-Policy", "no-referrer"},
        {"Cross-Origin-Resource-Policy", "same-origin"},
        {"Cross-Origin-Opener-Policy", "same-origin"},
        {"Cache-Control", "no-store"}})
    answer.headers.emplace_back(header);
  return answer;
}

}  // namespace vorlent
