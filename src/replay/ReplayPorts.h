#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Controllers.h"
#include "platform/Documents.h"
#include "platform/FileChooser.h"
#include "platform/Keyboard.h"
#include "platform/NetworkFiles.h"
#include "platform/Operator.h"
#include "platform/OwnShare.h"
#include "platform/PerformanceDb.h"
#include "platform/ProgramInstance.h"
#include "platform/Regional.h"
#include "platform/SoundDevice.h"
#include "platform/ZipFiles.h"
#include "replay/ReplayLoop.h"

/// The smaller ports of a server that lives a recording again: they answer as they did, and do
/// nothing.
namespace vorlent {

class Tape;

/// Boxes and modal forms stay for as long as they did.
class ReplayOperator : public Operator {
 public:
  explicit ReplayOperator(Wait wait) : wait_(std::move(wait)) {}
  void messageBox(const std::string&, BoxIcon, const std::string&) override {
    wait_(recorded::Call::MessageBox);
  }
  void pointer(Pointer) override {}
  void showForm(Form&, Modality) override { wait_(recorded::Call::ShowForm); }
  void hideForm(Form&) override {}

 private:
  Wait wait_;
};

class ReplayNetworkFiles : public NetworkFiles {
 public:
  explicit ReplayNetworkFiles(Tape& tape) : tape_(tape) {}
  bool exists(const std::string& path) override;
  bool write(const std::string& path, const std::string& content) override;
  bool remove(const std::string& path) override;

 protected:
  NetworkContent readUpTo(const std::string& path, std::size_t limit_bytes) override;

 private:
  Tape& tape_;
};

class ReplayPerformanceDb : public PerformanceDb {
 public:
  explicit ReplayPerformanceDb(Tape& tape) : tape_(tape) {}
  bool open(const std::string& path) override;
  PerformanceReading read() override;

 private:
  Tape& tape_;
};

class ReplayControllers : public Controllers {
 public:
  explicit ReplayControllers(Tape& tape) : tape_(tape) {}
  std::vector<ControllerInfo> devices() override;
  ControllerResult Acquire(std::size_t device) override;
  ControllerResult Poll(std::size_t device) override;
  ControllerResult GetDeviceState(std::size_t device, ControllerState& state) override;

 private:
  Tape& tape_;
};

/// All of it silent.
class ReplaySounds : public SoundDevice {
 public:
  explicit ReplaySounds(Tape& tape) : tape_(tape) {}
  std::vector<std::string> devices() override;
  bool open(int position, std::intptr_t window) override;
  std::unique_ptr<SoundBuffer> createBuffer(const std::string& path) override;
  std::optional<std::string> news() override;

 private:
  Tape& tape_;
};

/// What the machine offers besides, of one answer each.
class ReplayMachine : public OwnShare,
                      public Regional,
                      public ProgramInstance,
                      public Keyboard,
                      public FileChooser {
 public:
  explicit ReplayMachine(Tape& tape) : tape_(tape) {}
  bool publish(const std::string& shareName, const std::string& folder) override;
  std::string decimalSeparator() override;
  bool claim(const std::string& programFolder) override;
  void press(const KeyCombination& combination) override;
  std::vector<std::string> drives() override;
  std::optional<std::string> folder(const std::string&) override { return chosen(); }
  std::optional<std::string> zipToRead(const std::string&) override { return chosen(); }
  std::optional<std::string> zipToMake(const std::string&) override { return chosen(); }

 private:
  std::optional<std::string> chosen();

  Tape& tape_;
};

/// Work that ended when it ended then.
class ReplayDocuments : public Documents {
 public:
  void open(const std::string&, Done done) override { open_.push_back(std::move(done)); }
  void finish(int result);

 private:
  std::deque<Done> open_;
};

class ReplayZipFiles : public ZipFiles {
 public:
  void pack(const std::string&, const std::string&, Done done) override {
    open_.push_back(std::move(done));
  }
  void unpack(const std::string&, const std::string&, Done done) override {
    open_.push_back(std::move(done));
  }
  void finish(const std::string& fault);

 private:
  std::deque<Done> open_;
};

}  // namespace vorlent
