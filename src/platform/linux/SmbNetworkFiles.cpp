#include "platform/linux/SmbNetworkFiles.h"

#include "platform/NetworkPath.h"
#include "platform/linux/helper/shareMessages.h"

namespace vorlent {
namespace {

using namespace shareMessages;

/// The lengths and the word of an answer.
constexpr std::size_t AroundTheContent_bytes = 256;

Message greeting(const SmbNetworkFiles::Settings& settings) {
  const ShareCredentials& as = settings.credentials;
  return {Account, as.user, as.password, as.domain, std::to_string(settings.port)};
}

}  // namespace

SmbNetworkFiles::SmbNetworkFiles(const Settings& settings, EventLoop& clock)
    : deadline_(settings.deadline), helper_(settings.helper, greeting(settings)), absent_(clock) {}

bool SmbNetworkFiles::exists(const std::string& path) { return isDone({Exists, path}); }

bool SmbNetworkFiles::write(const std::string& path, const std::string& content) {
  return content.size() <= MostOfAPlan_bytes && isDone({Write, path, content});
}

bool SmbNetworkFiles::remove(const std::string& path) { return isDone({Remove, path}); }

NetworkContent SmbNetworkFiles::readUpTo(const std::string& path, std::size_t limit_bytes) {
  Message answer = ask({Read, path, std::to_string(limit_bytes)}, limit_bytes);
  if (answer.size() == 2 && answer[0] == Content) return std::move(answer[1]);
  if (answer.size() == 1 && answer[0] == TooLarge) return NetworkContent::ofTooLargeFile();
  return {};
}

Message SmbNetworkFiles::ask(const Message& question, std::size_t limit_bytes) {
  const auto path = networkPathOf(question[1]);
  if (!path || absent_.contains(path->host)) return {};
  HelperAnswer answer = helper_.ask(question, deadline_, limit_bytes + AroundTheContent_bytes);
  if (answer.late || answer.message == Message{Unreachable}) absent_.add(path->host);
  return std::move(answer.message).value_or(Message());
}

bool SmbNetworkFiles::isDone(const Message& question) { return ask(question) == Message{Done}; }

}  // namespace vorlent
