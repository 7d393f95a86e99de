#include "platform/DeadlineNetworkFiles.h"

#include <future>
#include <thread>
#include <utility>

#include "platform/NetworkPath.h"

namespace vorlent {

/// Without an answer in time, or to a path that is none, it is what an empty one is.
template <class Work>
auto DeadlineNetworkFiles::call(const std::string& path, Work work) {
  using Answer = decltype(work(*files_));
  const auto network = networkPathOf(path);
  if (!network || absent_.contains(network->host)) return Answer();
  std::packaged_task<Answer()> task(
      [files = files_, work = std::move(work)] { return work(*files); });
  auto answer = task.get_future();
  std::thread(std::move(task)).detach();
  if (answer.wait_for(Deadline) == std::future_status::ready) return answer.get();
  absent_.add(network->host);
  return Answer();
}

bool DeadlineNetworkFiles::exists(const std::string& path) {
  return call(path, [path](NetworkFiles& files) { return files.exists(path); });
}

bool DeadlineNetworkFiles::write(const std::string& path, const std::string& content) {
  return call(path, [path, content](NetworkFiles& files) { return files.write(path, content); });
}

bool DeadlineNetworkFiles::remove(const std::string& path) {
  return call(path, [path](NetworkFiles& files) { return files.remove(path); });
}

NetworkContent DeadlineNetworkFiles::readUpTo(const std::string& path, std::size_t limit_bytes) {
  return call(path,
              [path, limit_bytes](NetworkFiles& files) { return files.read(path, limit_bytes); });
}

}  // namespace vorlent
