// A simulator in a process of its own, for the tests of the transport on Windows.
//
//   SimulatorSide CLASS [FAULT REQUEST]
//
// Opens a hidden window of the class, prints "ready" and serves 64 KB of offsets until it is ended.
// It is FSX behind version 4.950; the byte at any other offset is (7 * offset + offset / 256) in
// its low 8 bits, but 0 where X-Plane has its mark. The fault befalls one request, counted from 1:
//   hang    it is served only after a line, or the end, of standard input
//   refuse  it is answered with 0 and not served
//   damage  it is served, and the first record's Id is 7 afterwards
//   exit    the process ends instead

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <limits>
#include <span>
#include <string>

#include "base/bytes.h"
#include "platform/RequestListener.h"
#include "simulator/OffsetMemory.h"
#include "simulator/RequestServer.h"

namespace {

using namespace vorlent;

void fill(OffsetMemory& memory) {
  for (std::size_t offset = 0; offset < OffsetMemory::Size; ++offset)
    memory.write(offset, static_cast<std::uint8_t>(7 * offset + offset / 256));
  memory.write(0x3304, std::uint32_t{0x49500000});
  memory.write(0x3308, std::uint32_t{0xFADE0008});
  memory.write(0x6FFF, std::uint8_t{0});
}

void awaitLine() {
  for (int c = std::getchar(); c != '\n' && c != EOF;) c = std::getchar();
}

std::int32_t befall(const std::string& fault, RequestServer& server, std::span<std::byte> block) {
  if (fault == "refuse") return 0;
  if (fault == "exit") std::_Exit(0);
  if (fault == "hang") awaitLine();
  const std::int32_t answer = server.serve(block);
  if (fault == "damage") store(block.data(), std::uint32_t{7});
  return answer;
}

[[noreturn]] void serve(const std::string& windowClass, const std::string& fault, long faulty) {
  OffsetMemory memory;
  fill(memory);
  RequestServer server(memory, [](const std::string&) {});
  long request = 0;
  const auto listener = listenForRequests({windowClass}, [&](std::span<std::byte> block) {
    return ++request == faulty ? befall(fault, server, block) : server.serve(block);
  });
  std::puts("ready");
  std::fflush(stdout);
  for (;;) listener->serve(std::numeric_limits<int>::max());
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2 && argumentCount != 4) return 2;
  try {
    if (argumentCount == 4)
      serve(arguments[1], arguments[2], std::strtol(arguments[3], nullptr, 10));
    serve(arguments[1], "", 0);
  } catch (const std::exception& error) {
    std::puts(error.what());
    return 1;
  }
}
