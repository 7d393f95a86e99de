#include "platform/evdev/MockInput.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <umockdev.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace vorlent {
namespace {

// What libevdev asks for is of the size of longs that hold all codes.
constexpr std::size_t KeyBytes = 96;
constexpr std::size_t OtherBytes = 8;
constexpr std::size_t ForceBytes = 16;
constexpr std::size_t TextBytes = 255;

std::string node(unsigned number) { return "event" + std::to_string(number); }
std::string nodePath(unsigned number) { return "/dev/input/" + node(number); }
std::string devicePath(unsigned number) {
  return "/devices/pci0000:00/0000:00:14.0/usb1/input/input" + std::to_string(number);
}

std::string bitmap(const std::vector<unsigned>& bits, std::size_t size_bytes) {
  std::string bytes(size_bytes, '\0');
  for (const unsigned bit : bits) {
    char& byte = bytes.at(bit / 8);
    byte = static_cast<char>(static_cast<unsigned char>(byte) | 1U << bit % 8);
  }
  return bytes;
}

template <class... Values>
std::string formatted(const char* format, Values... values) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

std::string hex(const std::string& bytes) {
  std::string text;
  for (const char byte : bytes) text += formatted("%02X", static_cast<unsigned char>(byte));
  return text;
}

/// As the kernel shows bitmaps under /sys: longs, the highest first, without leading zero ones.
std::string words(const std::vector<unsigned>& bits) {
  const std::string bytes = bitmap(bits, KeyBytes);
  std::string text;
  for (std::size_t at = KeyBytes; at > 0;) {
    at -= sizeof(unsigned long);
    unsigned long word = 0;
    std::memcpy(&word, bytes.data() + at, sizeof word);
    if (word != 0 || !text.empty() || at == 0)
      text += (text.empty() ? "" : " ") + formatted("%lx", word);
  }
  return text;
}

std::vector<unsigned> codesOf(const std::vector<MockAxis>& axes) {
  std::vector<unsigned> codes;
  for (const MockAxis& axis : axes) codes.push_back(axis.code);
  return codes;
}

std::string line(const std::string& request, std::size_t result, const std::string& bytes) {
  return request + " " + std::to_string(result) + " " + hex(bytes) + "\n";
}

std::string textLine(const std::string& request, std::string text) {
  const std::size_t length = text.size() + 1;
  text.resize(TextBytes);
  return line(request, length, text);
}

std::string bitsLine(unsigned type, const std::vector<unsigned>& bits, std::size_t size_bytes) {
  return line("EVIOCGBIT(" + std::to_string(type) + ")", size_bytes, bitmap(bits, size_bytes));
}

/// The answers to all requests that libevdev makes when it opens a device.
std::string ioctlRecord(const std::string& path, const MockBoard& board) {
  const input_id id{static_cast<__u16>(board.bus), 0x1209, 0x0001, 0x0100};
  std::string record = "@DEV " + path + "\n";
  record += line("EVIOCGID", 0, {reinterpret_cast<const char*>(&id), sizeof id});
  record += line("EVIOCGVERSION", 0, {"\x01\x00\x01\x00", 4});
  record += textLine("EVIOCGNAME", board.name) + textLine("EVIOCGPHYS", board.phys) +
            textLine("EVIOCGUNIQ", board.uniq);
  record += line("EVIOCGPROP", OtherBytes, bitmap(board.properties, OtherBytes));
  record += bitsLine(0, {EV_SYN, EV_KEY, EV_ABS}, OtherBytes);
  record += bitsLine(EV_KEY, board.keys, KeyBytes);
  record += bitsLine(EV_ABS, codesOf(board.axes), OtherBytes);
  for (const unsigned type : std::initializer_list<unsigned>{EV_REL, EV_MSC, EV_SW, EV_LED, EV_SND})
    record += bitsLine(type, {}, OtherBytes);
  record += bitsLine(EV_FF, {}, ForceBytes);
  record += line("EVIOCGKEY", KeyBytes, bitmap(board.pressed, KeyBytes));
  record += line("EVIOCGLED", OtherBytes, bitmap({}, OtherBytes));
  record += line("EVIOCGSW", OtherBytes, bitmap({}, OtherBytes));
  for (const MockAxis& axis : board.axes) {
    const input_absinfo info{axis.value, axis.minimum, axis.maximum, 0, 0, 0};
    record += line("EVIOCGABS(" + std::to_string(axis.code) + ")", 0,
                   {reinterpret_cast<const char*>(&info), sizeof info});
  }
  return record;
}

std::string attribute(const std::string& name, const std::string& value) {
  return "A: " + name + "=" + value + "\\n\n";
}

std::string sysRecord(unsigned number, const MockBoard& board) {
  const std::string device = devicePath(number);
  return "P: " + device + "/" + node(number) + "\nN: input/" + node(number) +
         "\nE: DEVNAME=" + nodePath(number) + "\nE: SUBSYSTEM=input\n" +
         attribute("dev", "13:" + std::to_string(64 + number)) + "L: device=../../input" +
         std::to_string(number) + "\n\nP: " + device + "\nE: SUBSYSTEM=input\n" +
         attribute("name", board.name) + attribute("phys", board.phys) +
         attribute("uniq", board.uniq) + attribute("id/bustype", formatted("%04x", board.bus)) +
         attribute("properties", words(board.properties)) +
         attribute("capabilities/abs", words(codesOf(board.axes))) +
         attribute("capabilities/key", words(board.keys)) + "\n";
}

void require(gboolean worked, const GError* error) {
  if (!worked) throw std::runtime_error(error ? error->message : "umockdev refused");
}

}  // namespace

MockInput::MockInput() : testbed_(umockdev_testbed_new()) {
  if (umockdev_in_mock_environment()) return;
  g_object_unref(testbed_);
  throw std::runtime_error("to be run under umockdev-wrapper, as ctest does");
}

MockInput::~MockInput() { g_object_unref(testbed_); }

void MockInput::plugIn(unsigned number, const MockBoard& board) {
  GError* error = nullptr;
  require(umockdev_testbed_add_from_string(testbed_, sysRecord(number, board).c_str(), &error),
          error);
  describe(number, board);
  plugged_.insert(number);
}

void MockInput::describe(unsigned number, const MockBoard& board) {
  GError* error = nullptr;
  records_.write(node(number), ioctlRecord(nodePath(number), board));
  require(umockdev_testbed_load_ioctl(testbed_, nodePath(number).c_str(),
                                      (records_ / node(number)).c_str(), &error),
          error);
}

void MockInput::unplug(unsigned number) {
  const int end = umockdev_testbed_get_dev_fd(testbed_, nodePath(number).c_str());
  forgetTerminal(ptsname(end));
  // The test bed keeps its end of the device open; what reads the device must see it hang up.
  const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
  dup2(nothing, end);
  close(nothing);
  const std::string device = "/sys" + devicePath(number);
  umockdev_testbed_remove_device(testbed_, (device + "/" + node(number)).c_str());
  umockdev_testbed_remove_device(testbed_, device.c_str());
  plugged_.erase(number);
}

/// The test bed would not take another device on the same terminal.
void MockInput::forgetTerminal(std::string terminal) const {
  std::replace(terminal.begin(), terminal.end(), '/', '_');
  std::filesystem::remove(rootFolder() + "/dev/.ptymap/" + terminal);
}

std::string MockInput::rootFolder() const {
  char* const root = umockdev_testbed_get_root_dir(testbed_);
  std::string folder = root;
  g_free(root);
  return folder;
}

void MockInput::lock(unsigned number) {
  const std::string file = rootFolder() + nodePath(number);
  std::filesystem::rename(file, file + ".locked");
}

void MockInput::unlock(unsigned number) {
  const std::string file = rootFolder() + nodePath(number);
  std::filesystem::rename(file + ".locked", file);
}

void MockInput::unplugAll() {
  while (!plugged_.empty()) unplug(*plugged_.begin());
  g_object_unref(testbed_);
  testbed_ = umockdev_testbed_new();
}

void MockInput::send(unsigned number, std::vector<MockEvent> events) {
  events.push_back({EV_SYN, SYN_REPORT, 0});
  const int end = umockdev_testbed_get_dev_fd(testbed_, nodePath(number).c_str());
  for (const MockEvent& from : events) {
    input_event event{};
    event.type = static_cast<__u16>(from.type);
    event.code = static_cast<__u16>(from.code);
    event.value = from.value;
    ASSERT_EQ(write(end, &event, sizeof event), static_cast<ssize_t>(sizeof event));
  }
}

}  // namespace vorlent
