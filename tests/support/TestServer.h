#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "clientlink/frmConnect.h"
#include "core/FrmTip.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "core/modMain.h"
#include "core/singletons.h"
#include "platform/NetworkFiles.h"
#include "platform/OwnShare.h"
#include "platform/PerformanceDb.h"
#include "platform/ProgramInstance.h"
#include "platform/Regional.h"
#include "support/FakeControllers.h"
#include "support/FakeDesktop.h"
#include "support/FakeNetwork.h"
#include "support/FakeSimulatorBus.h"
#include "support/RecordingKeyboard.h"
#include "support/RecordingOperator.h"
#include "support/RecordingSoundDevice.h"
#include "support/TempFolder.h"
#include "support/VirtualEventLoop.h"

namespace vorlent {

class FakeNetworkFiles : public NetworkFiles {
 public:
  bool exists(const std::string& path) override {
    asked.push_back(path);
    return present;
  }
  NetworkContent readUpTo(const std::string& path, std::size_t limit_bytes) override {
    const auto file = files.find(path);
    if (file == files.end()) return {};
    return file->second.size() > limit_bytes ? NetworkContent::ofTooLargeFile() : file->second;
  }
  bool write(const std::string& path, const std::string& content) override {
    changes.push_back("write " + path + ": " + content);
    return false;
  }
  bool remove(const std::string& path) override {
    changes.push_back("remove " + path);
    return false;
  }

  std::vector<std::string> asked;
  std::vector<std::string> changes;  ///< what was tried; none of it succeeds
  bool present = true;
  std::map<std::string, std::string> files;  ///< content by path
};

/// A database that is there or not, and what a reading of it gives.
class FakePerformanceDb : public PerformanceDb {
 public:
  bool open(const std::string& path) override {
    opened.push_back(path);
    return present;
  }
  PerformanceReading read() override {
    ++readings;
    return reading;
  }

  std::vector<std::string> opened;
  bool present = false;
  int readings = 0;
  PerformanceReading reading;
};

class FakeOwnShare : public OwnShare {
 public:
  bool publish(const std::string& shareName, const std::string& folder) override {
    published.push_back(shareName + "=" + folder);
    if (onPublish) onPublish();
    return commandThere;
  }
  std::vector<std::string> published;
  std::function<void()> onPublish;
  bool commandThere = true;
};

class FixedRegional : public Regional {
 public:
  std::string decimalSeparator() override { return mark; }
  std::string mark = ".";
};

class FakeInstance : public ProgramInstance {
 public:
  bool claim(const std::string&) override { return free; }
  bool free = true;
};

/// A whole server in one process and virtual time, in a program folder of its own that is complete:
/// base port 5000, two clients, cockpits "737-700" and "A-first".
class TestServer {
 public:
  /// Its sounds are recorded, or played by the given device, which outlives it.
  explicit TestServer(SoundDevice* player = nullptr);

  /// Runs the start as the program does.
  void start();
  /// Greets on a slot, as a display at 127.0.0.1 with this port.
  void greet(int slot, const std::string& interval_ms = "100", const std::string& name = "fmc1",
             std::uint16_t senderPort = 40000);
  bool deliver(int slot, const std::string& text, const Endpoint& sender = {"127.0.0.1", 40000});
  std::optional<int> exitStatus() const { return loop.exitStatus(); }
  std::string log() const;
  /// Sets a key of the Vorlent.ini in the program folder.
  void configure(const std::string& key, const std::string& value) const;

  TempFolder folder;
  VirtualEventLoop loop;
  RecordingOperator op;
  FakeNetwork network;
  FakeSimulatorBus bus;
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
  Server server;
  frmMainClient& form;
  modPublic& store;
};

}  // namespace vorlent
