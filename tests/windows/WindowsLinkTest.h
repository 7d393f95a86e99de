#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/ProcessEnd.h"
#include "platform/win32/SystemFiles.h"
#include "platform/win32/WindowsSimulatorBus.h"
#include "support/TestServer.h"
#include "windows/SimulatorProcess.h"

namespace vorlent {

/// The system's own bus, which may be made to wait less for answers than it is asked to.
class WatchedWindowsBus : public WindowsSimulatorBus {
 public:
  SendResult sendMessage(WindowHandle window, MessageId message, AtomId atom,
                         int timeout_ms) override {
    timeouts_ms.push_back(timeout_ms);
    if (onSend) onSend();
    return WindowsSimulatorBus::sendMessage(window, message, atom,
                                            impatient ? Impatient_ms : timeout_ms);
  }

  static constexpr int Impatient_ms = 20;
  bool impatient = false;
  std::function<void()> onSend;
  std::vector<int> timeouts_ms;
};

/// The transport of a server that has not been started, on the real bus; the simulator's side is
/// another process.
class WindowsLinkTest : public testing::Test {
 protected:
  using Box = RecordingOperator::Box;

  /// Opens the link to a simulator that is there and is as it should be.
  void initLink(const SimulatorProcess& simulator) {
    ASSERT_EQ(simulator.greeting(), "ready");
    ASSERT_TRUE(link.InitLink());
    bus.timeouts_ms.clear();
  }
  bool read(std::uint32_t offset, std::uint32_t size, void* to) {
    return link.QueueRead(offset, size, to, result) && link.Process(result);
  }
  std::vector<std::uint8_t> bytesAt(std::uint32_t offset, std::uint32_t size) {
    link.ReadBytes(offset, size, 1);
    return {link.FsBytes.begin() + 1, link.FsBytes.end()};
  }
  static Box failedConnection(const std::string& text) {
    return {"FSUIPC Connection failed: " + text, BoxIcon::Critical, "Initialization error"};
  }

  TempFolder folder;
  VirtualEventLoop loop;
  RecordingOperator op;
  FakeNetwork network;
  WatchedWindowsBus bus;
  FakeNetworkFiles networkFiles;
  FakePerformanceDb performanceDb;
  FakeOwnShare ownShare;
  FixedRegional regional;
  FakeInstance instance;
  FakeControllers controllers;
  RecordingKeyboard keyboard;
  RecordingSoundDevice soundDevice;
  FakeDocuments documents;
  FakeFileChooser chooser;
  FakeZipFiles zipFiles;
  Server server{{loop, op, network, bus, networkFiles, performanceDb, ownShare, regional, instance,
                 controllers, keyboard, soundDevice, documents, chooser, zipFiles},
                {folder.path(), systemFiles()}};
  clsFSUIPC& link = *server.fsuipc;
  int result = -1;
};

}  // namespace vorlent
