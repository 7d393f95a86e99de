#include "endtoend/OffsetClient.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace vorlent {
namespace {

constexpr std::size_t BlockSize = 32768;
constexpr int Limit_ms = 10000;

void require(bool done, const std::string& what) {
  if (!done) throw std::runtime_error(what);
}

}  // namespace

OffsetClient::OffsetClient(const std::string& busFolder) : environment_("VORLENT_BUS", busFolder) {
  const std::string name = "FSASMLIB:IPC:" + std::to_string(bus_.processId()) + ":E";
  window_ = bus_.findWindow("UIPCMAIN");
  require(window_ != 0, "no simulator");
  message_ = bus_.registerMessage("FSASMLIB:IPC");
  atom_ = bus_.addAtom(name);
  block_ = bus_.mapBlock(bus_.createBlock(name, BlockSize).block);
  require(block_ != nullptr, "no block");
}

void OffsetClient::transfer(std::initializer_list<std::uint32_t> head, std::span<std::byte> data) {
  std::byte* const behindHead = block_ + 4 * head.size();
  std::memcpy(block_, head.begin(), 4 * head.size());
  std::copy(data.begin(), data.end(), behindHead);
  std::fill_n(behindHead + data.size(), 4, std::byte{0});
  const SendResult result = bus_.sendMessage(window_, message_, atom_, Limit_ms);
  require(result.answered && result.reply == 1, "the simulator does not serve");
  std::copy_n(behindHead, data.size(), data.begin());
}

}  // namespace vorlent
