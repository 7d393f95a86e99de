// Lists the sound devices as the server counts them, and which of them can be opened.

#include <cstdio>
#include <string>

#include "commandline/CommandLine.h"
#include "platform/SystemSoundOutput.h"
#include "platform/ThreadedSoundDevice.h"

namespace {

using namespace vorlent;

bool opens(int position) {
  ThreadedSoundDevice device(std::make_unique<SystemSoundOutput>(),
                             ThreadedSoundDevice::Silence::Offered);
  return device.open(position, 0);
}

void list(bool firstUsableAlone) {
  const auto names = ThreadedSoundDevice(std::make_unique<SystemSoundOutput>(),
                                         ThreadedSoundDevice::Silence::Offered)
                         .devices();
  for (std::size_t i = 0; i < names.size(); ++i) {
    const int position = static_cast<int>(i) + 1;
    const bool usable = opens(position);
    if (!firstUsableAlone)
      std::printf("%d %s%s\n", position, names[i].c_str(), usable ? "" : " (cannot be opened)");
    if (firstUsableAlone && usable) {
      std::printf("%d\n", position);
      return;
    }
  }
}

}  // namespace

int main(int argumentCount, char** arguments) {
  try {
    bool firstUsableAlone = false;
    CommandLine line("vorlent-sound", "Lists the sound devices by the number for IDSoundDevice.");
    line.flag("--usable", firstUsableAlone, "The number of the first that can be opened, alone");
    line.read(argumentsOf(argumentCount, arguments));
    list(firstUsableAlone);
    return 0;
  } catch (const CommandLineEnd& end) {
    return tell(end);
  }
}
