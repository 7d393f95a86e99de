#include "platform/linux/InputNodes.h"

#include <libudev.h>
#include <linux/input.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/ConnectionOrder.h"

namespace vorlent {
namespace {

struct Release {
  void operator()(udev* context) const { udev_unref(context); }
  void operator()(udev_enumerate* search) const { udev_enumerate_unref(search); }
  void operator()(udev_device* device) const { udev_device_unref(device); }
};
using Context = std::unique_ptr<udev, Release>;
using Search = std::unique_ptr<udev_enumerate, Release>;
using Device = std::unique_ptr<udev_device, Release>;

std::string textOf(const char* text) { return text ? text : ""; }

/// What the kernel tells of a device, without its being opened.
class Attributes {
 public:
  explicit Attributes(udev_device* device) : device_(device) {}

  /// Empty when there is none of this name.
  std::string text(const std::string& name) const {
    return textOf(device_ ? udev_device_get_sysattr_value(device_, name.c_str()) : nullptr);
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

  udev_device* device_;
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

/// In the order of their numbers.
std::vector<Device> eventDevices() {
  std::vector<Device> devices;
  const Context context(udev_new());
  const Search search(context ? udev_enumerate_new(context.get()) : nullptr);
  if (!search) return devices;
  udev_enumerate_add_match_subsystem(search.get(), "input");
  udev_enumerate_add_match_sysname(search.get(), "event*");
  udev_enumerate_scan_devices(search.get());
  for (udev_list_entry* entry = udev_enumerate_get_list_entry(search.get()); entry != nullptr;
       entry = udev_list_entry_get_next(entry))
    if (Device device{udev_device_new_from_syspath(context.get(), udev_list_entry_get_name(entry))})
      devices.push_back(std::move(device));
  std::sort(devices.begin(), devices.end(), [](const Device& a, const Device& b) {
    return comesBefore(udev_device_get_sysname(a.get()), udev_device_get_sysname(b.get()));
  });
  return devices;
}

std::optional<InputNode> controllerAt(udev_device* eventDevice) {
  const Attributes device(udev_device_get_parent(eventDevice));
  const std::string path = textOf(udev_device_get_devnode(eventDevice));
  if (path.empty() || !isController(device)) return std::nullopt;
  return InputNode{path, device.text("name"), connectionOf(device)};
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
  for (const Device& device : eventDevices())
    if (auto controller = controllerAt(device.get())) found.push_back(std::move(*controller));
  std::stable_sort(found.begin(), found.end(), [](const InputNode& a, const InputNode& b) {
    return comesBefore(a.connection, b.connection);
  });
  tellPartsApart(found);
  // Of a board that has just been plugged in, one part may be allowed to be read before another.
  std::erase_if(found, mayNotBeRead);
  return found;
}

}  // namespace vorlent
