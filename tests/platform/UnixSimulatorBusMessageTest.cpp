#include <pthread.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <memory>
#include <string>
#include <thread>

#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "platform/StandInWindow.h"
#include "platform/linux/UnixSimulatorBus.h"
#include "support/ScopedEnvironment.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

using std::chrono::steady_clock;

constexpr int Long_ms = 10000;
constexpr int Short_ms = 30;
// A wait may end one tick of the kernel's clock early; the slowest has 100 a second.
constexpr std::chrono::milliseconds ClockTick{10};
const std::string Success("\x01\0\0\0", 4);

class UnixSimulatorBusMessage : public testing::Test {
 protected:
  SendResult send(int timeout_ms) { return bus.sendMessage(window, message, atom, timeout_ms); }
  void open() { window = bus.findWindow("UIPCMAIN"); }

  TempFolder folder;
  ScopedEnvironment environment{"VORLENT_BUS", folder.path()};
  StandInWindow simulator{folder.path(), "UIPCMAIN"};
  UnixSimulatorBus bus;
  MessageId message = bus.registerMessage("FSASMLIB:IPC");
  AtomId atom = bus.addAtom("FSASMLIB:IPC:1A2B:1");
  WindowHandle window = 0;
};

TEST_F(UnixSimulatorBusMessage, AWindowThatNobodyOpenedIsNotFound) {
  EXPECT_EQ(bus.findWindow("FS98MAIN"), 0);
}

TEST_F(UnixSimulatorBusMessage, TheSocketOfADeadSimulatorIsNoWindow) {
  simulator.stopListening();
  ASSERT_TRUE(std::filesystem::exists(folder / "UIPCMAIN"));
  EXPECT_EQ(bus.findWindow("UIPCMAIN"), 0);
}

TEST_F(UnixSimulatorBusMessage, NoWindowIsFoundInAFolderThatOthersMayWriteTo) {
  std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
  EXPECT_EQ(bus.findWindow("UIPCMAIN"), 0);
}

TEST_F(UnixSimulatorBusMessage, ARequestIsTheMessageALineFeedAndTheAtom) {
  open();
  std::string request;
  std::thread other([&] {
    const auto client = simulator.accepted();
    request = client.receive();
    client.sendPacket(Success);
  });
  const auto result = send(Long_ms);
  other.join();
  EXPECT_EQ(request, "FSASMLIB:IPC\nFSASMLIB:IPC:1A2B:1");
  EXPECT_TRUE(result.answered);
  EXPECT_EQ(result.reply, 1);
}

TEST_F(UnixSimulatorBusMessage, TheReplyIsSignedAndLittleEndian) {
  open();
  std::thread other([&] {
    const auto client = simulator.accepted();
    client.receive();
    client.sendPacket("\xFE\xFF\xFF\xFF");
  });
  const auto result = send(Long_ms);
  other.join();
  EXPECT_TRUE(result.answered);
  EXPECT_EQ(result.reply, -2);
}

TEST_F(UnixSimulatorBusMessage, AHundredRequestsGoOverOneConnection) {
  open();
  int served = 0;
  std::thread other([&] {
    const auto client = simulator.accepted();
    for (; served < 100 && client.receive().starts_with("FSASMLIB:IPC\n"); ++served)
      client.sendPacket({static_cast<char>(served), 0, 0, 0});
  });
  int right = 0;
  for (int i = 0; i < 100; ++i) right += send(Long_ms).reply == i ? 1 : 0;
  other.join();
  EXPECT_EQ(served, 100);
  EXPECT_EQ(right, 100);
}

TEST_F(UnixSimulatorBusMessage, NoAnswerIsATimeOutAfterTheTimeGiven) {
  open();
  const auto start = steady_clock::now();
  const auto result = send(Short_ms);
  EXPECT_GE(steady_clock::now() - start + ClockTick, std::chrono::milliseconds(Short_ms));
  EXPECT_FALSE(result.answered);
  EXPECT_EQ(result.lastError, 0u);
}

TEST_F(UnixSimulatorBusMessage, ALateAnswerIsNotTakenForTheNextRequests) {
  open();
  ASSERT_FALSE(send(Short_ms).answered);
  const auto late = simulator.accepted();
  std::thread other([&] {
    const auto next = simulator.accepted();
    late.sendPacket({7, 0, 0, 0});
    next.receive();
    next.sendPacket({3, 0, 0, 0});
  });
  const auto result = send(Long_ms);
  other.join();
  EXPECT_TRUE(result.answered);
  EXPECT_EQ(result.reply, 3);
}

TEST_F(UnixSimulatorBusMessage, AConnectionClosedInsteadOfAnsweredIsAnErrorAndStaysOne) {
  open();
  std::thread other([&] {
    auto client = simulator.accepted();
    client.receive();
    client.close();
  });
  const auto result = send(Long_ms);
  other.join();
  EXPECT_FALSE(result.answered);
  EXPECT_EQ(result.lastError, static_cast<unsigned>(ECONNRESET));
  EXPECT_EQ(send(Long_ms).lastError, static_cast<unsigned>(ENOTCONN));
}

TEST_F(UnixSimulatorBusMessage, AConnectionClosedBetweenRequestsIsAnErrorAndNoSignal) {
  open();
  simulator.accepted().close();
  const auto result = send(Long_ms);
  EXPECT_FALSE(result.answered);
  EXPECT_EQ(result.lastError, static_cast<unsigned>(EPIPE));
}

TEST_F(UnixSimulatorBusMessage, ASimulatorThatDiesAfterATimeOutIsAnError) {
  open();
  ASSERT_FALSE(send(Short_ms).answered);
  simulator.stopListening();
  EXPECT_EQ(send(Long_ms).lastError, static_cast<unsigned>(ECONNREFUSED));
}

TEST_F(UnixSimulatorBusMessage, AnAnswerThatIsNotFourBytesIsAnError) {
  for (const std::string& answer : {std::string("\x01\0\0", 3), std::string("\x01\0\0\0\0", 5)}) {
    open();
    std::thread other([&] {
      const auto client = simulator.accepted();
      client.receive();
      client.sendPacket(answer);
      client.receive();
    });
    const auto result = send(Long_ms);
    other.join();
    EXPECT_FALSE(result.answered);
    EXPECT_EQ(result.lastError, static_cast<unsigned>(EPROTO)) << answer.size() << " bytes";
  }
}

TEST_F(UnixSimulatorBusMessage, AWindowIsFoundAgainUnderItsHandleWhileItsSimulatorLives) {
  open();
  const auto client = simulator.accepted();
  EXPECT_NE(window, 0);
  EXPECT_EQ(bus.findWindow("UIPCMAIN"), window);
}

TEST_F(UnixSimulatorBusMessage, AWindowOfARestartedSimulatorHasAnotherHandle) {
  open();
  simulator.accepted().close();
  const auto another = bus.findWindow("UIPCMAIN");
  EXPECT_NE(another, 0);
  EXPECT_NE(another, window);
  EXPECT_EQ(send(Short_ms).lastError, static_cast<unsigned>(EBADF));
}

TEST_F(UnixSimulatorBusMessage, AWindowThatTakesNoConnectionsHangsAndIsFoundAllTheSame) {
  const StandInWindow hanging(folder.path(), "X-System", 0);
  const int attempts = 8;
  bool givenUpAtOnce = false;
  window = bus.findWindow("X-System");
  for (int i = 0; i < attempts; ++i) {
    ASSERT_NE(window, 0);
    const auto start = steady_clock::now();
    const auto result = send(Short_ms);
    EXPECT_FALSE(result.answered);
    EXPECT_EQ(result.lastError, 0u);
    givenUpAtOnce |= steady_clock::now() - start < std::chrono::milliseconds(Short_ms);
    window = bus.findWindow("X-System");
  }
  EXPECT_TRUE(givenUpAtOnce);
}

TEST_F(UnixSimulatorBusMessage, AnUnknownMessageOrAtomIsNotSent) {
  open();
  EXPECT_EQ(bus.sendMessage(window, message + 1, atom, Long_ms).lastError,
            static_cast<unsigned>(EINVAL));
  bus.deleteAtom(atom);
  EXPECT_EQ(send(Long_ms).lastError, static_cast<unsigned>(EINVAL));
}

TEST_F(UnixSimulatorBusMessage, TheSameMessageTextHasTheSameNumber) {
  EXPECT_EQ(bus.registerMessage("FSASMLIB:IPC"), message);
  EXPECT_NE(bus.registerMessage("another"), message);
}

TEST_F(UnixSimulatorBusMessage, TextsThatWouldForgeAPacketHaveNoNumber) {
  EXPECT_EQ(bus.registerMessage("a\nb"), 0u);
  EXPECT_EQ(bus.addAtom("a\nb"), 0u);
  EXPECT_EQ(bus.addAtom(""), 0u);
}

std::atomic<int> signalCount = 0;

TEST_F(UnixSimulatorBusMessage, SignalsThatInterruptTheWaitNeitherEndItNorLengthenIt) {
  struct sigaction counting {};
  struct sigaction former {};
  counting.sa_handler = [](int) { ++signalCount; };
  sigaction(SIGUSR1, &counting, &former);
  open();
  const pthread_t waiting = pthread_self();
  std::atomic<bool> done = false;
  std::thread other([&] {
    while (!done) {
      pthread_kill(waiting, SIGUSR1);
      std::this_thread::yield();
    }
  });
  const auto start = steady_clock::now();
  const auto result = send(100);
  const auto took = steady_clock::now() - start;
  done = true;
  other.join();
  sigaction(SIGUSR1, &former, nullptr);
  EXPECT_GT(signalCount, 0);
  EXPECT_FALSE(result.answered);
  EXPECT_EQ(result.lastError, 0u);
  EXPECT_GE(took + ClockTick, std::chrono::milliseconds(100));
  EXPECT_LT(took, std::chrono::seconds(5));
}

}  // namespace
}  // namespace vorlent
