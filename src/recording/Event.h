#pragma once

#include <compare>
#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

#include "base/Deed.h"

/// What a recording holds, in the order in which it happened: what the event loop gave the server
/// to handle, and what each of its ports answered. Whoever gives a server the same again sees it do
/// the same again.
namespace vorlent::recorded {

/// Of the server's start, before all others.
struct Started {
  std::string version;     ///< of the server
  std::string local_time;  ///< "2026-11-22 13:16:00"
  bool operator==(const Started&) const = default;
  static auto fields(auto& self) { return std::tie(self.version, self.local_time); }
};

/// A file of the program folder as it was at the start. One that is too large to keep has no
/// content.
struct FileKept {
  std::string path;  ///< from the program folder, with slashes
  std::uint64_t size_bytes = 0;
  bool kept = true;
  std::string content;
  bool operator==(const FileKept&) const = default;
  static auto fields(auto& self) {
    return std::tie(self.path, self.size_bytes, self.kept, self.content);
  }
};

// What the event loop gave the server to handle.

/// The timers count from 0, in the order in which they are made.
struct TimerTicked {
  std::uint32_t timer = 0;
  bool operator==(const TimerTicked&) const = default;
  static auto fields(auto& self) { return std::tie(self.timer); }
};

/// The sockets count from 0, in the order in which they are made; sessions that are made anew have
/// new ones.
struct DatagramCame {
  std::uint32_t socket = 0;
  std::string address;
  std::uint16_t port = 0;
  std::string text;
  bool operator==(const DatagramCame&) const = default;
  static auto fields(auto& self) {
    return std::tie(self.socket, self.address, self.port, self.text);
  }
};

/// The rest of a datagram, which UdpSocket::continueLater() has left for a later turn.
struct DatagramContinued {
  std::uint32_t socket = 0;
  bool operator==(const DatagramContinued&) const = default;
  static auto fields(auto& self) { return std::tie(self.socket); }
};

/// What the operator did; without form and control where the deed has none.
struct HandMoved {
  using Deed = vorlent::Deed;
  static constexpr std::uint8_t Deeds = static_cast<std::uint8_t>(Deed::ExitSignal) + 1;

  Deed deed = Deed::Line;
  std::string form;
  std::string control;  ///< "Settings(0)" for an element of a control array
  std::string value;
  bool operator==(const HandMoved&) const = default;
  static auto fields(auto& self) {
    return std::tie(self.deed, self.form, self.control, self.value);
  }
};

/// What was asked of a port. The numbers are the file's: new ones go to the end.
enum class Call : std::uint8_t {
  TickCount,         ///< number: ms
  LocalTime,         ///< number: hour * 10000 + minute * 100 + second
  Sleep,             ///< number: the ms slept; nothing else happens meanwhile
  Pump,              ///< number: 1 when it begins, 0 when it comes back
  FindWindow,        ///< number: the window
  Obstacle,          ///< text
  RegisterMessage,   ///< number
  AddAtom,           ///< number
  CreateBlock,       ///< number: the block, 0 for none; text: "exists" for a name that is taken
  MapBlock,          ///< number: 1, or 0 for none
  IsIntact,          ///< only where it is not: number 0
  ProcessId,         ///< number
  Bind,              ///< number: the port; text: the socket's number, a blank, the address
  Send,              ///< only where it raised
  TurnIsOver,        ///< number: 1 or 0
  LocalIp,           ///< text
  LocalHostName,     ///< text
  AttachedNetworks,  ///< text: a line each
  FileExists,        ///< of another machine; number: 1 or 0
  FileRead,          ///< number: 1; 0 not there; 2 too large; text: the content
  FileWrite,         ///< number: 1 or 0
  FileRemove,        ///< number: 1 or 0
  DatabaseOpen,      ///< number: 1 or 0
  DatabaseRead,      ///< text: see portTexts.h
  PublishShare,      ///< number: 1 or 0
  DecimalSeparator,  ///< text
  ClaimInstance,     ///< number: 1 or 0
  Controllers,       ///< text: for each a line of its name, a tab and its connection
  AcquireStick,      ///< only where it is not Ok; number: ControllerResult
  PollStick,         ///< only where it is not Ok; number: ControllerResult
  ReadStick,         ///< number: ControllerResult; text: the 80 bytes of the state, if it is Ok
  PressKey,          ///< number: 1; raised where the keyboard cannot
  SoundDevices,      ///< text: a line each
  OpenSound,         ///< number: 1 or 0
  CreateSound,       ///< number: 1; raised where the file is no sound
  SoundNews,         ///< only with news; text
  Drives,            ///< text: a line each
  ChooseFile,        ///< number: 1 when one was chosen; text
  MessageBox,        ///< number: 1 when it is shown, 0 when it is acknowledged; see BoxShown
  ShowForm,          ///< number: 1 when it is shown, 0 when the call comes back; text: the form
  ZipDone,           ///< given to the server, not asked; text: the fault
  DocumentDone,      ///< given to the server, maybe before the call comes back; number: the result
};
constexpr std::uint8_t Calls = static_cast<std::uint8_t>(Call::DocumentDone) + 1;

/// What a port answered.
struct Answered {
  Call call = Call::TickCount;
  std::int64_t number = 0;
  std::string text;
  bool operator==(const Answered&) const = default;
  static auto fields(auto& self) { return std::tie(self.call, self.number, self.text); }
};

/// A port raised a RuntimeError in place of an answer.
struct Raised {
  Call call = Call::TickCount;
  std::int32_t number = 0;
  std::string description;
  bool operator==(const Raised&) const = default;
  static auto fields(auto& self) { return std::tie(self.call, self.number, self.description); }
};

/// A read or a write of a request to the simulator.
struct Operation {
  bool write = false;
  std::uint32_t offset = 0;
  std::uint32_t size_bytes = 0;
  auto operator<=>(const Operation&) const = default;
  static auto fields(auto& self) { return std::tie(self.write, self.offset, self.size_bytes); }
};
using Request = std::vector<Operation>;

/// One message to the simulator, with what stood in the block before and after it.
struct Exchanged {
  /// Never null. Equal requests of a recording share one.
  std::shared_ptr<const Request> request = std::make_shared<const Request>();
  std::string written;  ///< the bytes of all writes, one behind the other
  std::string read;     ///< the bytes of all reads; empty when nobody answered, or it is damaged
  /// The whole block, where the simulator left other records in it than the request's own; else
  /// empty.
  std::string damaged;
  bool answered = false;
  std::int32_t reply = 0;
  std::uint32_t lastError = 0;

  /// By what they hold, whoever shares the requests.
  bool operator==(const Exchanged& other) const {
    return *request == *other.request && written == other.written && read == other.read &&
           damaged == other.damaged && answered == other.answered && reply == other.reply &&
           lastError == other.lastError;
  }
  /// All but the request, which is told by its number.
  static auto fields(auto& self) {
    return std::tie(self.written, self.read, self.damaged, self.answered, self.reply,
                    self.lastError);
  }
};

// What follows is there for who looks: the server does it by itself again.

struct StatusShown {
  std::uint8_t panel = 1;
  std::string text;
  bool operator==(const StatusShown&) const = default;
  static auto fields(auto& self) { return std::tie(self.panel, self.text); }
};

/// A message box, told when it comes up. Its Answered of Call::MessageBox stand around what happens
/// until it is acknowledged.
struct BoxShown {
  std::uint8_t icon = 0;  ///< BoxIcon
  std::string title;
  std::string text;
  bool operator==(const BoxShown&) const = default;
  static auto fields(auto& self) { return std::tie(self.icon, self.title, self.text); }
};

struct SessionChanged {
  enum class What : std::uint8_t { Greeted, Stopped };
  std::uint32_t socket = 0;
  What what = What::Greeted;
  std::string address;
  std::uint16_t port = 0;
  bool operator==(const SessionChanged&) const = default;
  static auto fields(auto& self) {
    return std::tie(self.socket, self.what, self.address, self.port);
  }
};

/// Events are missing here, which the recorder could not keep up with. What comes behind it is no
/// continuation of what stands before it.
struct Dropped {
  std::uint64_t events = 0;
  bool operator==(const Dropped&) const = default;
  static auto fields(auto& self) { return std::tie(self.events); }
};

/// The event loop is left. Behind it only calls come back that were still under way. A recording
/// without it was cut off.
struct Ended {
  std::int32_t exitStatus = 0;
  bool operator==(const Ended&) const = default;
  static auto fields(auto& self) { return std::tie(self.exitStatus); }
};

/// The numbers of the alternatives are the file's: new ones go to the end.
using What = std::variant<Started, FileKept, TimerTicked, DatagramCame, DatagramContinued,
                          HandMoved, Answered, Raised, Exchanged, StatusShown, BoxShown,
                          SessionChanged, Dropped, Ended>;

struct Event {
  /// Since the recording began, by a clock that nobody sets: never less than the one before.
  std::int64_t time_us = 0;
  What what;
  bool operator==(const Event&) const = default;
};

}  // namespace vorlent::recorded
