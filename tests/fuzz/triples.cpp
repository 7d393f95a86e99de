#include "commands/triples.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/RuntimeError.h"
#include "independentTriples.h"
#include "require.h"
#include "support/TestServer.h"

// An input is a line of triples behind one byte, of which bit 0 chooses the regional mark: a point
// or a comma.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static vorlent::TestServer t;
  const char mark = (data[0] & 1) != 0 ? ',' : '.';
  const std::string line(data + 1, data + size);
  independent::RecordingCommands commands(t.server.commandContext());
  bool fault = false;
  try {
    vorlent::carryOutTriples(commands, line, std::string(1, mark));
  } catch (const vorlent::RuntimeError&) {
    fault = true;
  }
  const independent::Triples expected = independent::triplesOf(line, mark);
  VORLENT_REQUIRE(commands.calls == expected.calls);
  VORLENT_REQUIRE(fault == expected.endInAFault);
  return 0;
}
