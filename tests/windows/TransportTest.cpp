#include <windows.h>

#include <array>
#include <cstdio>

#include "simlink/Snapshot.h"
#include "windows/WindowsLinkTest.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using Bytes = std::vector<std::uint8_t>;

class TransportBetweenProcesses : public WindowsLinkTest {};

/// The byte that the simulator's side shows where nobody has written.
std::uint8_t untouchedByte(std::uint32_t offset) {
  return static_cast<std::uint8_t>((offset * 7 + (offset >> 8)) & 0xFF);
}

/// Of this process's first block.
std::string blockName() {
  std::array<char, 30> name{};
  std::snprintf(name.data(), name.size(), "FSASMLIB:IPC:%lX:1", GetCurrentProcessId());
  return name.data();
}

bool blockIsThere() {
  const HANDLE found = OpenFileMappingA(FILE_MAP_READ, FALSE, blockName().c_str());
  if (found != nullptr) CloseHandle(found);
  return found != nullptr;
}

TEST_F(TransportBetweenProcesses, InitLinkIdentifiesTheSimulator) {
  const SimulatorProcess simulator;
  ASSERT_EQ(simulator.greeting(), "ready");
  ASSERT_TRUE(link.InitLink());
  EXPECT_TRUE(link.IPC_Available());
  EXPECT_EQ(link.IPCVersion(), "4.950");
  EXPECT_EQ(link.FSVersion(), "FSX");
  EXPECT_EQ(link.simulatorNumber(), 8u);
  EXPECT_EQ(link.XPlane(), 0);
}

TEST_F(TransportBetweenProcesses, InitLinkWithoutASimulatorTellsTheOperator) {
  EXPECT_FALSE(link.InitLink());
  EXPECT_THAT(op.takeBoxes(), ElementsAre(failedConnection(
                                  "Cannot link to FSUIPC; Possible cause: FSUIPC not installed, "
                                  "inaccessible, or wrong version")));
}

TEST_F(TransportBetweenProcesses, TheOldWindowClassServesWhenTheNewIsNotThere) {
  const SimulatorProcess simulator({"FS98MAIN"});
  initLink(simulator);
  EXPECT_EQ(bytesAt(0x1234, 1), Bytes{untouchedByte(0x1234)});
}

TEST_F(TransportBetweenProcesses, AMarkAtItsOffsetMakesTheSimulatorXPlane) {
  const SimulatorProcess simulator;
  initLink(simulator);
  link.WriteByte(0x6FFF, 1, 1, result);
  link.CloseLink();
  ASSERT_TRUE(link.InitLink());
  EXPECT_EQ(link.XPlane(), 1);
  EXPECT_EQ(link.FSVersion(), "X-Plane");
}

TEST_F(TransportBetweenProcesses, TypedWritesAreReadBackByteForByte) {
  const SimulatorProcess simulator;
  initLink(simulator);
  link.WriteByte(0x4000, 1, 0xA5, result);
  link.WriteInt(0x4001, 2, -2, result);
  link.WriteLong(0x4003, 4, 0x12345678, result);
  link.WriteDouble(0x4007, 8, -0.5, result);
  EXPECT_EQ(bytesAt(0x4000, 16), (Bytes{0xA5, 0xFE, 0xFF, 0x78, 0x56, 0x34, 0x12, 0, 0, 0, 0, 0, 0,
                                        0xE0, 0xBF, untouchedByte(0x400F)}));
  EXPECT_EQ(link.ReadDouble(0x4007, 8), -0.5);
}

TEST_F(TransportBetweenProcesses, AWholePollComesInOneRoundTrip) {
  const SimulatorProcess simulator;
  initLink(simulator);
  Snapshot snapshot;
  ASSERT_TRUE(link.PeekAll(snapshot, result));
  EXPECT_EQ(result, 0);
  EXPECT_EQ(bus.timeouts_ms, std::vector<int>{2000});
  for (const SnapshotRead& read : SnapshotReads)
    for (std::uint32_t offset = read.offset; offset < read.offset + read.size; ++offset)
      ASSERT_EQ(snapshot.u8(offset), untouchedByte(offset)) << std::hex << offset;
}

TEST_F(TransportBetweenProcesses, AFullBlockGoesOverAndOneByteMoreDoesNotFit) {
  const SimulatorProcess simulator;
  initLink(simulator);
  // 32512 bytes less the closing zero (4) and two headers (16 each).
  constexpr std::uint32_t Room = 32512 - 4 - 16 - 16;
  Bytes most(Room - 1), last(2);
  EXPECT_TRUE(link.QueueRead(0x0000, Room - 1, most.data(), result));
  EXPECT_FALSE(link.QueueRead(0x8000, 2, last.data(), result));
  EXPECT_EQ(result, 15);
  EXPECT_TRUE(link.QueueRead(0x8000, 1, last.data(), result));
  ASSERT_TRUE(link.Process(result));
  for (std::uint32_t offset = 0; offset < Room - 1; ++offset) {
    if (offset >= 0x3304 && offset < 0x330C) continue;  // version and simulator
    if (offset == 0x6FFF) continue;                     // X-Plane's mark
    ASSERT_EQ(most[offset], untouchedByte(offset)) << std::hex << offset;
  }
  EXPECT_EQ(last[0], untouchedByte(0x8000));
}

TEST_F(TransportBetweenProcesses, ASecondOpenIsRefusedAndTheLinkWorksOn) {
  const SimulatorProcess simulator;
  initLink(simulator);
  EXPECT_FALSE(link.Open(0, result));
  EXPECT_EQ(result, 1);
  EXPECT_EQ(bytesAt(0x1234, 1), Bytes{untouchedByte(0x1234)});
}

TEST_F(TransportBetweenProcesses, ABlockNameThatIsTakenRefusesTheLinkAndLeavesTheOtherBlock) {
  const SimulatorProcess simulator;
  const HANDLE others = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 4096,
                                           blockName().c_str());
  EXPECT_FALSE(link.Open(0, result));
  EXPECT_EQ(result, 5);
  EXPECT_TRUE(blockIsThere());
  CloseHandle(others);
  EXPECT_TRUE(link.Open(0, result));
}

TEST_F(TransportBetweenProcesses, TheBlockAndItsAtomAreThereWhileTheLinkIsOpenOnly) {
  const SimulatorProcess simulator;
  for (int round = 0; round < 2; ++round) {
    EXPECT_FALSE(blockIsThere());
    ASSERT_TRUE(link.Open(0, result));
    EXPECT_TRUE(blockIsThere());
    EXPECT_NE(GlobalFindAtomA(blockName().c_str()), 0);
    link.CloseLink();
    EXPECT_EQ(GlobalFindAtomA(blockName().c_str()), 0);
  }
  EXPECT_FALSE(blockIsThere());
}

// The first request after InitLink() is the third: that asks for the version, then for X-Plane.

TEST_F(TransportBetweenProcesses, ASimulatorThatNeverAnswersIsATimeOutOfOneAttemptAndTenRetries) {
  const SimulatorProcess simulator({"UIPCMAIN", "hang", "3"});
  initLink(simulator);
  bus.impatient = true;
  const int before_ms = loop.sleptInTotal_ms();
  std::uint8_t byte = 0x77;
  EXPECT_FALSE(read(0x1234, 1, &byte));
  EXPECT_EQ(result, 11);
  EXPECT_EQ(byte, 0x77);
  EXPECT_EQ(bus.timeouts_ms, std::vector<int>(11, 2000));
  EXPECT_EQ(loop.sleptInTotal_ms() - before_ms, 10 * 100);
}

TEST_F(TransportBetweenProcesses, ASimulatorThatAnswersLateIsServedByTheRetry) {
  const SimulatorProcess simulator({"UIPCMAIN", "hang", "3"});
  initLink(simulator);
  bus.impatient = true;
  bus.onSend = [&] {
    if (bus.timeouts_ms.size() < 2) return;
    bus.impatient = false;
    simulator.goOn();
    bus.onSend = nullptr;
  };
  std::uint8_t byte = 0x77;
  EXPECT_TRUE(read(0x1234, 1, &byte));
  EXPECT_EQ(result, 0);
  EXPECT_EQ(byte, untouchedByte(0x1234));
  EXPECT_EQ(bus.timeouts_ms.size(), 2u);
}

TEST_F(TransportBetweenProcesses, ARefusedRequestIsBadDataAndTheNextOneWorks) {
  const SimulatorProcess simulator({"UIPCMAIN", "refuse", "3"});
  initLink(simulator);
  std::uint8_t byte = 0x77;
  EXPECT_FALSE(read(0x1234, 1, &byte));
  EXPECT_EQ(result, 13);
  EXPECT_EQ(byte, 0x77);
  EXPECT_TRUE(read(0x1234, 1, &byte));
  EXPECT_EQ(byte, untouchedByte(0x1234));
}

TEST_F(TransportBetweenProcesses, ADamagedReplyFailsAndTheNextRequestWorks) {
  const SimulatorProcess simulator({"UIPCMAIN", "damage", "3"});
  initLink(simulator);
  std::uint8_t byte = 0x77;
  EXPECT_FALSE(read(0x1234, 1, &byte));
  EXPECT_EQ(byte, 0x77);
  EXPECT_TRUE(read(0x1234, 1, &byte));
  EXPECT_EQ(byte, untouchedByte(0x1234));
}

TEST_F(TransportBetweenProcesses, ASimulatorThatEndsInTheMiddleOfARequestIsAFailedSend) {
  const SimulatorProcess simulator({"UIPCMAIN", "exit", "3"});
  initLink(simulator);
  std::uint8_t byte = 0x77;
  EXPECT_FALSE(read(0x1234, 1, &byte));
  EXPECT_EQ(result, 12);
  EXPECT_EQ(byte, 0x77);
}

TEST_F(TransportBetweenProcesses, ASimulatorThatGoesAwayEndsTheServerAtATypedTransfer) {
  SimulatorProcess simulator;
  initLink(simulator);
  simulator.end();
  EXPECT_THROW(bytesAt(0x1234, 1), ProcessEnd);
  EXPECT_EQ(server.mainClient->sbStatusBar.panelText(1),
            "FSUIPC Process error IPC sendmessage failed all retries");
}

TEST_F(TransportBetweenProcesses, ARestartedSimulatorIsFoundByANewLink) {
  SimulatorProcess first;
  initLink(first);
  first.end();
  link.CloseLink();
  const SimulatorProcess second;
  initLink(second);
  EXPECT_EQ(bytesAt(0x1234, 1), Bytes{untouchedByte(0x1234)});
}

TEST_F(TransportBetweenProcesses, ASecondSimulatorIsRefusedAndTheFirstServesOn) {
  const SimulatorProcess first;
  initLink(first);
  const SimulatorProcess second;
  EXPECT_EQ(second.greeting(), "Cannot open a window UIPCMAIN: another simulator is running");
  EXPECT_EQ(bytesAt(0x1234, 1), Bytes{untouchedByte(0x1234)});
}

}  // namespace
}  // namespace vorlent
