#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "require.h"
#include "simulator/OffsetMemory.h"
#include "simulator/RequestServer.h"

// An input is the block that a client leaves, up to where it ends; the rest of the block is zero.

using vorlent::OffsetMemory;
using vorlent::RequestServer;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t blockSize = 32768;
  constexpr std::uint64_t identity = 0xFADE000849500000;
  // On the heap and exactly as long as it is, so that the sanitizer sees an access beside it.
  std::vector<std::byte> block(blockSize);
  std::transform(data, data + std::min(size, blockSize), block.begin(),
                 [](std::uint8_t byte) { return std::byte{byte}; });
  const std::vector<std::byte> before = block;
  const auto memory = std::make_unique<OffsetMemory>();
  memory->write(0x3304, identity);
  RequestServer server(*memory, [](const std::string&) {});

  const std::int32_t answer = server.serve(block);

  VORLENT_REQUIRE(answer == RequestServer::Good || answer == RequestServer::Malformed);
  VORLENT_REQUIRE(memory->read<std::uint64_t>(0x3304) == identity);
  if (answer == RequestServer::Malformed) VORLENT_REQUIRE(block == before);
  return 0;
}
