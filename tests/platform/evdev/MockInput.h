#pragma once

#include <linux/input.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "support/TempFolder.h"

struct _UMockdevTestbed;

namespace vorlent {

struct MockAxis {
  unsigned code;
  std::int32_t minimum;
  std::int32_t maximum;
  std::int32_t value;  ///< at the moment it is opened
};

/// What a device tells of itself to the kernel.
struct MockBoard {
  std::string name;
  std::string phys;
  std::vector<MockAxis> axes;
  std::vector<unsigned> keys;
  std::vector<unsigned> pressed = {};  ///< at the moment it is opened
  std::string uniq = {};
  unsigned bus = BUS_USB;
  std::vector<unsigned> properties = {};
};

struct MockEvent {
  unsigned type;
  unsigned code;
  std::int32_t value;
};

/// The machine's input devices as umockdev plays them; it starts with none. The program has to run
/// under umockdev-wrapper.
class MockInput {
 public:
  MockInput();
  ~MockInput();
  MockInput(const MockInput&) = delete;
  MockInput& operator=(const MockInput&) = delete;

  /// As /dev/input/event<number>.
  void plugIn(unsigned number, const MockBoard& board);
  /// Its number cannot be had again before unplugAll().
  void unplug(unsigned number);
  void unplugAll();
  /// Takes the device's file away, as from a user who may not open it, and gives it back.
  void lock(unsigned number);
  void unlock(unsigned number);
  /// Sends the events and a SYN_REPORT behind them.
  void send(unsigned number, std::vector<MockEvent> events);

 private:
  void describe(unsigned number, const MockBoard& board);
  void forgetTerminal(std::string terminal) const;
  std::string rootFolder() const;

  _UMockdevTestbed* testbed_;
  std::set<unsigned> plugged_;
  TempFolder records_;
};

}  // namespace vorlent
