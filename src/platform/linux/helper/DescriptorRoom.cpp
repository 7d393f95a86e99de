#include "platform/helper/DescriptorRoom.h"

#include <fcntl.h>
#include <sys/resource.h>

#include <vector>

#include "platform/linux/Descriptor.h"

namespace vorlent {
namespace {

constexpr std::size_t Needed = 16;

}  // namespace

std::string whyTooFewDescriptors() {
  std::vector<Descriptor> taken;
  while (taken.size() < Needed) {
    Descriptor one(open("/", O_RDONLY | O_CLOEXEC));
    if (!one) break;
    taken.push_back(std::move(one));
  }
  if (taken.size() == Needed) return {};
  rlimit limit{};
  getrlimit(RLIMIT_NOFILE, &limit);
  return "Only " + std::to_string(taken.size()) +
         " more files can be opened, and the start needs " + std::to_string(Needed) +
         ". The limit is " + std::to_string(limit.rlim_cur) +
         ": raise it, for example with \"ulimit -n 1024\", and start again";
}

}  // namespace vorlent
