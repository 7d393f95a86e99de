#include "platform/linux/InputNodes.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/input.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/ConnectionOrder.h"
#include "platform/linux/Descriptor.h"

namespace vorlent {
namespace {

const std::string classFolder = "/sys/class/input/";

/// What the kernel tells of a device under `/sys`, without its being opened.
class Attributes {
 public:
  explicit Attributes(const std::string& node) : folder_(classFolder + node + "/device/") {}

  /// The first line of the file; empty when there is none.
  std::string text(const std::string& name) const {
    const Descriptor file(open((folder_ + name).c_str(), O_RDONLY | O_CLOEXEC));
    std::array<char, 1024> content;
    const ssize_t length = file ? read(file.number(), content.data(), content.size()) : 0;
    const std::string_view all(content.data(), static_cast<std::size_t>(std::max(length, {})));
    return std::string(all.substr(0, all.find('\n')));
  }

  /// Whether any bit from `first` to `last` is set in a bitmap: hexadecimal words of the size of
  /// the kernel's long, the highest first.
  bool hasAny(const std::string& bitmap, unsigned first, unsigned last) const {
    const std::string words = text(bitmap);
    for (unsigned bit = first; bit <= last; ++bit)
      if (wordAt(words, bit / WordBits) >> bit % WordBits & 1) return true;
    return false;
  }
  bool has(const std::string& bitmap, unsigned bit) const { return hasAny(bitmap, bit, bit); }

 private:
  static constexpr unsigned WordBits = 8 * sizeof(unsigned long);

  /// Word `index`, counted from the end of the text.
  static unsigned long wordAt(std::string_view words, unsigned index) {
    for (; index > 0; --index) {
      const std::size_t blank = words.rfind(' ');
      if (blank == std::string_view::npos) return 0;
      words.remove_suffix(words.size() - blank);
    }
    words.remove_prefix(words.rfind(' ') + 1);  // npos + 1 is 0
    unsigned long word = 0;
    std::from_chars(words.data(), words.data() + words.size(), word, 16);
    return word;
  }

  std::string folder_;
};

const std::string axes = "capabilities/abs";
const std::string keys = "capabilities/key";

bool isPointer(const Attributes& device) {
  return device.hasAny(keys, BTN_MOUSE, BTN_TASK) ||
         device.hasAny(keys, BTN_DIGI, BTN_GEAR_DOWN - 1);
}

// A home-made board may have axes and no button at all, so axes are enough.
bool isController(const Attributes& device) {
  if (device.has("properties", INPUT_PROP_ACCELEROMETER) || device.has(keys, KEY_ENTER) ||
      isPointer(device))
    return false;
  return device.hasAny(axes, ABS_X, ABS_BRAKE) || device.hasAny(axes, ABS_HAT0X, ABS_HAT3Y) ||
         device.hasAny(keys, BTN_JOYSTICK, BTN_DIGI - 1) ||
         device.hasAny(keys, BTN_TRIGGER_HAPPY, BTN_TRIGGER_HAPPY40);
}

// `phys` is the path through controllers, hubs and ports. On Bluetooth it is the computer's own
// address and the device's is in `uniq`.
std::string connectionOf(const Attributes& device) {
  const std::string path = device.text("phys"), own = device.text("uniq");
  const bool bluetooth = device.text("id/bustype") == "0005";
  return bluetooth && !own.empty() ? own : path;
}

std::vector<std::string> eventNodes() {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(classFolder.c_str()), closedir);
  while (const dirent* entry = folder ? readdir(folder.get()) : nullptr)
    if (std::string_view(entry->d_name).starts_with("event")) names.emplace_back(entry->d_name);
  std::sort(names.begin(), names.end(), comesBefore);
  return names;
}

std::optional<InputNode> controllerAt(const std::string& node) {
  const Attributes device(node);
  if (!isController(device)) return std::nullopt;
  return InputNode{"/dev/input/" + node, device.text("name"), connectionOf(device)};
}

bool mayNotBeRead(const InputNode& node) { return access(node.path.c_str(), R_OK) != 0; }

/// Several devices at one connection are the parts of one board: the kernel numbers them in the
/// board's order, and so does this.
void tellPartsApart(std::vector<InputNode>& sorted) {
  std::string former;
  int part = 1;
  for (InputNode& node : sorted) {
    part = std::exchange(former, node.connection) == node.connection ? part + 1 : 1;
    if (part > 1) node.connection += " part " + std::to_string(part);
  }
}

}  // namespace

std::vector<InputNode> inputNodes() {
  std::vector<InputNode> found;
  for (const std::string& node : eventNodes())
    if (auto controller = controllerAt(node)) found.push_back(std::move(*controller));
  std::stable_sort(found.begin(), found.end(), [](const InputNode& a, const InputNode& b) {
    return comesBefore(a.connection, b.connection);
  });
  tellPartsApart(found);
  // Of a board that has just been plugged in, one part may be allowed to be read before another.
  std::erase_if(found, mayNotBeRead);
  return found;
}

}  // namespace vorlent
