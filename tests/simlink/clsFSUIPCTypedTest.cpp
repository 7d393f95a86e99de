#include <functional>

#include "simlink/LinkTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using Box = RecordingOperator::Box;
using Write = FakeSimulatorBus::Write;

using Operation = std::function<void(clsFSUIPC& link)>;

const std::vector<Operation> Reads = {[](clsFSUIPC& link) { link.ReadBytes(0x0264, 1, 1); },
                                      [](clsFSUIPC& link) { link.ReadDouble(0x2EE8, 8); }};

const std::vector<Operation> WholeNumberWrites = {[](clsFSUIPC& link) {
                                                    int result = 0;
                                                    link.WriteByte(0x0264, 1, 1, result);
                                                  },
                                                  [](clsFSUIPC& link) {
                                                    int result = 0;
                                                    link.WriteInt(0x0264, 2, 1, result);
                                                  },
                                                  [](clsFSUIPC& link) {
                                                    int result = 0;
                                                    link.WriteLong(0x0264, 4, 1, result);
                                                  }};

void writeDouble(clsFSUIPC& link) {
  int result = 0;
  link.WriteDouble(0x2EB0, 8, 1, result);
}

class ClsFSUIPCTyped : public LinkTest {
 protected:
  void SetUp() override { initLink(); }

  /// Ends the process and says this on the status line and in the log.
  void endsWithStatus(const Operation& operation, const std::string& text) {
    bus.unansweredRequests = 11;
    EXPECT_EQ(endedBy([&] { operation(link); }), 1);
    EXPECT_EQ(t.form.sbStatusBar.panelText(1), text);
    EXPECT_THAT(t.log(), EndsWith(text + "\r\n"));
    EXPECT_EQ(bus.requests, 11);
    bus.requests = 0;
  }
  void endsWithBox(const Operation& operation, const std::string& text, const std::string& title) {
    EXPECT_EQ(endedBy([&] { operation(link); }), 1);
    EXPECT_THAT(t.op.takeBoxes(), ElementsAre(Box{text, BoxIcon::Critical, title}));
  }
};

TEST_F(ClsFSUIPCTyped, ByteIsWrittenAsIs) {
  link.WriteByte(0x0280, 1, 0xAB, result);
  EXPECT_THAT(bus.writes, ElementsAre(Write{0x0280, {0xAB}}));
  EXPECT_EQ(result, 0);
}

TEST_F(ClsFSUIPCTyped, IntIsWrittenLowByteFirst) {
  link.WriteInt(0x0BDC, 2, 0x1234, result);
  link.WriteInt(0x0BB2, 2, -2, result);
  EXPECT_THAT(bus.writes, ElementsAre(Write{0x0BDC, {0x34, 0x12}}, Write{0x0BB2, {0xFE, 0xFF}}));
}

TEST_F(ClsFSUIPCTyped, LongIsWrittenLowByteFirst) {
  link.WriteLong(0x07D4, 4, 0x12345678, result);
  link.WriteLong(0x07D4, 4, -2, result);
  EXPECT_THAT(bus.writes, ElementsAre(Write{0x07D4, {0x78, 0x56, 0x34, 0x12}},
                                      Write{0x07D4, {0xFE, 0xFF, 0xFF, 0xFF}}));
}

TEST_F(ClsFSUIPCTyped, LongOfTwoBytesIsItsLowHalf) {
  link.WriteLong(0x07CC, 2, 0x12345678, result);
  link.WriteLong(0x07F2, 2, -1000, result);
  EXPECT_THAT(bus.writes, ElementsAre(Write{0x07CC, {0x78, 0x56}}, Write{0x07F2, {0x18, 0xFC}}));
}

TEST_F(ClsFSUIPCTyped, DoubleIsWrittenAsItsEightBytes) {
  link.WriteDouble(0x2EB0, 8, -1.5, result);
  EXPECT_THAT(bus.writes, ElementsAre(Write{0x2EB0, {0, 0, 0, 0, 0, 0, 0xF8, 0xBF}}));
}

TEST_F(ClsFSUIPCTyped, NoMoreThanTheValueIsWritten) {
  link.WriteByte(0x0280, 4, 0xAB, result);
  link.WriteInt(0x0280, 100, 1, result);
  link.WriteLong(0x0280, 0xFFFFFFFF, 1, result);
  link.WriteDouble(0x0280, 9, 0, result);
  EXPECT_THAT(bus.writes,
              ElementsAre(Write{0x0280, {0xAB}}, Write{0x0280, {1, 0}}, Write{0x0280, {1, 0, 0, 0}},
                          Write{0x0280, {0, 0, 0, 0, 0, 0, 0, 0}}));
}

TEST_F(ClsFSUIPCTyped, BytesAreReadIntoElementsFromOne) {
  bus.putText(0x3100, "B738");
  link.FsBytes = {9, 9, 9, 9, 9, 9, 9, 9};
  link.ReadBytes(0x3100, 4, 1);
  EXPECT_EQ(link.FsBytes, (Bytes{0, 'B', '7', '3', '8'}));
}

TEST_F(ClsFSUIPCTyped, BytesAreReadFromTheStartIndex) {
  bus.putText(0x3100, "B738");
  link.ReadBytes(0x3100, 4, 0);
  EXPECT_EQ(link.FsBytes, (Bytes{'B', '7', '3', '8', 0}));
}

TEST_F(ClsFSUIPCTyped, StartIndexThatLeavesNoRoomIsASubscriptFault) {
  EXPECT_EQ(raisedBy([this] { link.ReadBytes(0x3100, 4, 2); }), 9);
  EXPECT_EQ(bus.requests, 0);
}

TEST_F(ClsFSUIPCTyped, ReadOfNoBytesLeavesElementZeroAlone) {
  link.ReadBytes(0x3100, 0, 1);
  EXPECT_EQ(link.FsBytes, (Bytes{0}));
  EXPECT_EQ(bus.requests, 1);
}

TEST_F(ClsFSUIPCTyped, DoubleIsRead) {
  bus.put(0x2EE8, -0.017453);
  EXPECT_EQ(link.ReadDouble(0x2EE8, 8), -0.017453);
}

TEST_F(ClsFSUIPCTyped, DoubleOfMoreThanEightBytesIsRefused) {
  EXPECT_EQ(raisedBy([this] { link.ReadDouble(0x2EE8, 9); }), 5);
  EXPECT_EQ(bus.requests, 0);
}

TEST_F(ClsFSUIPCTyped, EachIsOneRoundTrip) {
  for (const auto& operation : Reads) operation(link);
  for (const auto& operation : WholeNumberWrites) operation(link);
  writeDouble(link);
  EXPECT_EQ(bus.requests, 6);
}

TEST_F(ClsFSUIPCTyped, WriteHasTakenEffectWhenItReturns) {
  link.WriteInt(0x0BDC, 2, 4095, result);
  EXPECT_EQ(bus.get<std::int16_t>(0x0BDC), 4095);
}

TEST_F(ClsFSUIPCTyped, ReadOnAClosedLinkTellsTheOperatorAndEndsTheProcess) {
  link.CloseLink();
  for (const auto& read : Reads)
    endsWithBox(read, "Reading: Call cannot execute, link not Open", "FSUIPC Reading error");
}

TEST_F(ClsFSUIPCTyped, WriteOnAClosedLinkTellsTheOperatorAndEndsTheProcess) {
  link.CloseLink();
  for (const auto& write : WholeNumberWrites)
    endsWithBox(write, "Writing: Call cannot execute, link not Open", "FSUIPC Writing error");
  endsWithBox(writeDouble, "Writing: Call cannot execute, link not Open", "FSUIPC Writing error");
}

TEST_F(ClsFSUIPCTyped, ReadThatIsTooLargeTellsTheOperatorAndEndsTheProcess) {
  link.ReadBytes(0, 32492, 1);
  endsWithBox([](clsFSUIPC& x) { x.ReadBytes(0, 32493, 1); },
              "Reading: Read or Write request cannot be added, memory for Process is full",
              "FSUIPC Reading error");
}

TEST_F(ClsFSUIPCTyped, ReadThatIsNotAnsweredEndsTheProcess) {
  for (const auto& read : Reads)
    endsWithStatus(read, "FSUIPC Process error IPC timed out all retries");
}

TEST_F(ClsFSUIPCTyped, WriteOfADoubleThatIsNotAnsweredEndsTheProcess) {
  endsWithStatus(writeDouble, "FSUIPC Process error IPC timed out all retries");
}

TEST_F(ClsFSUIPCTyped, WriteOfAWholeNumberThatIsNotAnsweredEndsTheProcessWithoutABlank) {
  for (const auto& write : WholeNumberWrites)
    endsWithStatus(write, "FSUIPC Process errorIPC timed out all retries");
}

TEST_F(ClsFSUIPCTyped, FailedSendIsNamedByItsOwnText) {
  bus.errorOfUnanswered = 5;
  endsWithStatus(Reads[0], "FSUIPC Process error IPC sendmessage failed all retries");
}

TEST_F(ClsFSUIPCTyped, OtherInterfaceIsNamedInItsFailures) {
  link.CloseLink();
  bus.put<std::uint8_t>(0x6FFF, 1);
  initLink();
  endsWithStatus(Reads[0], "XPUIPC Process error IPC timed out all retries");
  endsWithStatus(WholeNumberWrites[0], "XPUIPC Process errorIPC timed out all retries");
  link.CloseLink();
  endsWithBox(Reads[0], "Reading: Call cannot execute, link not Open", "XPUIPC Reading error");
  endsWithBox(writeDouble, "Writing: Call cannot execute, link not Open", "XPUIPC Writing error");
}

TEST_F(ClsFSUIPCTyped, ReplyOtherThanOneEndsTheProcess) {
  bus.onRequest = [](SendResult, std::byte*) { return SendResult{true, 0, 0}; };
  EXPECT_EQ(endedBy([this] { link.ReadBytes(0x0264, 1, 1); }), 1);
  EXPECT_EQ(t.form.sbStatusBar.panelText(1), "FSUIPC Process error IPC request contains bad data");
}

}  // namespace
}  // namespace vorlent
