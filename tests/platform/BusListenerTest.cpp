#include "platform/linux/BusListener.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "base/RuntimeError.h"
#include "base/bytes.h"
#include "platform/linux/UnixSimulatorBus.h"
#include "support/OrdinaryUser.h"
#include "support/ScopedEnvironment.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

constexpr int Long_ms = 5000;

/// A connection that sends what it likes.
class RawClient {
 public:
  explicit RawClient(const std::string& window)
      : socket_(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, window.c_str(), sizeof address.sun_path - 1);
    EXPECT_EQ(
        connect(socket_.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    const timeval limit{Long_ms / 1000, 0};
    setsockopt(socket_.number(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
  }

  bool send(const std::string& packet) const {
    return ::send(socket_.number(), packet.data(), packet.size(), MSG_NOSIGNAL | MSG_DONTWAIT) ==
           static_cast<ssize_t>(packet.size());
  }
  /// Nothing when the connection was closed or no answer of four bytes came.
  std::optional<std::int32_t> answer() const {
    std::array<std::byte, 8> packet;
    if (recv(socket_.number(), packet.data(), packet.size(), 0) != 4) return std::nullopt;
    return load<std::int32_t>(packet.data());
  }
  std::optional<std::int32_t> ask(const std::string& packet) const {
    return send(packet) ? answer() : std::nullopt;
  }

 private:
  Descriptor socket_;
};

/// A listener that serves on a thread of its own: it copies the first byte of the block to the
/// second one and answers 1.
class BusListenerTest : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_all);
    start();
  }
  void TearDown() override { stop(); }

  void start() {
    listener = std::make_unique<BusListener>(folder.path(),
                                             std::vector<std::string>{"UIPCMAIN", "FS98MAIN"},
                                             [](std::span<std::byte> served) {
                                               served[1] = served[0];
                                               return 1;
                                             });
    run();
  }
  void run() {
    ended = false;
    server = std::thread([this] {
      while (!ended) listener->serve(5);
    });
  }
  void stop() {
    ended = true;
    if (server.joinable()) server.join();
    listener.reset();
  }

  std::string blockName() const {
    return "FSASMLIB:IPC:" + std::to_string(getpid()) + ":" + std::to_string(blockNumber);
  }
  std::byte* makeBlock(std::size_t size = 32768) {
    block = bus.createBlock(blockName(), size).block;
    return bus.mapBlock(block);
  }
  void cutBlock(off_t size) const {
    std::string name = "/" + blockName();
    std::replace(name.begin(), name.end(), ':', '.');
    const Descriptor file(shm_open(name.c_str(), O_RDWR, 0));
    ASSERT_EQ(ftruncate(file.number(), size), 0);
  }
  SendResult sendRequest(const std::string& windowClass = "UIPCMAIN") {
    return bus.sendMessage(bus.findWindow(windowClass), bus.registerMessage("FSASMLIB:IPC"),
                           bus.addAtom(blockName()), Long_ms);
  }
  std::string window() const { return folder / "UIPCMAIN"; }

  TempFolder folder;
  ScopedEnvironment busVariable{"VORLENT_BUS", folder.path()};
  std::unique_ptr<BusListener> listener;
  std::thread server;
  std::atomic<bool> ended = false;
  std::atomic<bool> cutShort = false;
  UnixSimulatorBus bus;
  BlockHandle block = 0;
  int blockNumber = 1;
};

TEST_F(BusListenerTest, ServesTheBlockThatTheAtomNames) {
  std::byte* const view = makeBlock();
  view[0] = std::byte{42};
  const SendResult result = sendRequest();
  EXPECT_TRUE(result.answered);
  EXPECT_EQ(result.reply, 1);
  EXPECT_EQ(view[1], std::byte{42});
}

TEST_F(BusListenerTest, ServesEveryWindow) {
  std::byte* const view = makeBlock();
  view[0] = std::byte{43};
  EXPECT_EQ(sendRequest("FS98MAIN").reply, 1);
  EXPECT_EQ(view[1], std::byte{43});
}

TEST_F(BusListenerTest, ABlockThatIsMadeAnewUnderItsNameIsTheOneThatIsServed) {
  std::byte* view = makeBlock();
  EXPECT_EQ(sendRequest().reply, 1);
  bus.unmapBlock(view);
  bus.dropBlock(block);
  view = makeBlock();
  view[0] = std::byte{44};
  EXPECT_EQ(sendRequest().reply, 1);
  EXPECT_EQ(view[1], std::byte{44});
}

TEST_F(BusListenerTest, ABlockThatWasDroppedIsAnsweredWithZero) {
  bus.unmapBlock(makeBlock());
  EXPECT_EQ(sendRequest().reply, 1);
  bus.dropBlock(block);
  const SendResult result = sendRequest();
  EXPECT_TRUE(result.answered);
  EXPECT_EQ(result.reply, 0);
}

TEST_F(BusListenerTest, AnotherNameOnTheSameConnectionIsAnotherBlock) {
  makeBlock();
  EXPECT_EQ(sendRequest().reply, 1);
  blockNumber = 2;
  std::byte* const second = makeBlock();
  second[0] = std::byte{45};
  EXPECT_EQ(sendRequest().reply, 1);
  EXPECT_EQ(second[1], std::byte{45});
}

TEST_F(BusListenerTest, ABlockThatIsTooSmallIsAnsweredWithZero) {
  makeBlock(32767);
  EXPECT_EQ(sendRequest().reply, 0);
}

TEST_F(BusListenerTest, ABlockThatIsCutShortLaterIsAnsweredWithZero) {
  makeBlock();
  EXPECT_EQ(sendRequest().reply, 1);
  cutBlock(100);
  EXPECT_EQ(sendRequest().reply, 0);
}

TEST_F(BusListenerTest,
       ABlockThatIsCutShortWhileItIsServedIsAnsweredWithZeroAndMadeAnewItIsServed) {
  stop();
  listener = std::make_unique<BusListener>(folder.path(), std::vector<std::string>{"UIPCMAIN"},
                                           [this](std::span<std::byte> served) {
                                             if (cutShort) cutBlock(100);
                                             served[32767] = served[16000];
                                             return 1;
                                           });
  run();
  std::byte* const view = makeBlock();
  cutShort = true;
  EXPECT_EQ(sendRequest().reply, 0);
  cutShort = false;
  bus.unmapBlock(view);
  bus.dropBlock(block);
  makeBlock()[16000] = std::byte{47};
  EXPECT_EQ(sendRequest().reply, 1);
}

TEST_F(BusListenerTest, TheSocketsAreForTheUserAloneWhateverTheUmask) {
  stop();
  for (const mode_t mask : {0000U, 0022U, 0777U}) {
    const mode_t former = umask(mask);
    start();
    umask(former);
    struct stat found {};
    ASSERT_EQ(stat(window().c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777, 0600u) << std::oct << mask;
    stop();
  }
}

TEST_F(BusListenerTest, AnotherUsersConnectionIsClosed) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can be another user as well";
  std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
  std::filesystem::permissions(window(), std::filesystem::perms::all);
  const pid_t other = fork();
  if (other == 0) {
    const OrdinaryUser user;
    const RawClient client(window());
    client.send("rubbish");
    _exit(HasFailure() ? 2 : client.answer() ? 1 : 0);
  }
  int status = 0;
  waitpid(other, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(RawClient(window()).ask("rubbish"), 0);
}

TEST_F(BusListenerTest, ABlockThatBelongsToAnotherUserIsNotOpened) {
  makeBlock();
  ForeignBlock ours(getuid());
  EXPECT_EQ(ours.open(blockName(), 32768).size(), 32768u);
  ForeignBlock others(getuid() + 1);
  EXPECT_TRUE(others.open(blockName(), 32768).empty());
}

TEST_F(BusListenerTest, RubbishIsAnsweredWithZeroAndTheConnectionStays) {
  std::byte* const view = makeBlock();
  view[0] = std::byte{46};
  const RawClient client(window());
  const std::string good = "FSASMLIB:IPC\n" + blockName();
  const std::vector<std::string> packets{std::string("x"),
                                         std::string("\n"),
                                         std::string("FSASMLIB:IPC"),
                                         std::string("FSASMLIB:IPC\n"),
                                         "fsasmlib:ipc\n" + blockName(),
                                         good + "/../passwd",
                                         "FSASMLIB:IPC\n/" + blockName(),
                                         std::string("FSASMLIB:IPC\n.."),
                                         good + std::string(1, '\0'),
                                         good + std::string(300, 'x'),
                                         good + std::string(5000, 'x'),
                                         std::string(100, '\xFF')};
  for (const std::string& packet : packets)
    EXPECT_EQ(client.ask(packet), 0) << packet.substr(0, 40);
  EXPECT_EQ(view[1], std::byte{0});
  EXPECT_EQ(client.ask(good), 1);
  EXPECT_EQ(view[1], std::byte{46});
}

TEST_F(BusListenerTest, AClientThatDoesNotReadItsAnswersIsLetGoAndOthersAreServed) {
  const RawClient deaf(window());
  const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  int refused = 0;
  // A queue that is full for the moment refuses too; a closed connection refuses for good.
  while (refused < 1 && std::chrono::steady_clock::now() < limit)
    if (!deaf.send("rubbish") && errno == EPIPE) ++refused;
  EXPECT_EQ(refused, 1);
  makeBlock();
  EXPECT_EQ(sendRequest().reply, 1);
}

TEST_F(BusListenerTest, SilentClientsDoNotHoldOthersUp) {
  std::vector<RawClient> silent;
  for (int i = 0; i < 20; ++i) silent.emplace_back(window());
  makeBlock();
  EXPECT_EQ(sendRequest().reply, 1);
}

TEST_F(BusListenerTest, ConnectionsBeyondTheSixtyFourthAreClosed) {
  std::vector<RawClient> clients;
  for (int i = 0; i < 64; ++i) {
    clients.emplace_back(window());
    ASSERT_EQ(clients.back().ask("rubbish"), 0) << i;
  }
  const RawClient oneMore(window());
  oneMore.send("rubbish");
  EXPECT_EQ(oneMore.answer(), std::nullopt);
  clients.pop_back();
  // The place is free as soon as the listener has seen the end of the one that left.
  std::optional<std::int32_t> answer;
  const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!answer && std::chrono::steady_clock::now() < limit)
    answer = RawClient(window()).ask("rubbish");
  EXPECT_EQ(answer, 0);
}

TEST_F(BusListenerTest, ServingEndsInTimeEvenWhenRequestsNeverEnd) {
  stop();
  BusListener busy(folder.path(), {"UIPCMAIN"}, [](std::span<std::byte>) { return 1; });
  const RawClient client(window());
  std::atomic<bool> done = false;
  std::thread flood([&] {
    while (!done && client.ask("rubbish")) continue;
  });
  const auto start = std::chrono::steady_clock::now();
  busy.serve(50);
  const auto took = std::chrono::steady_clock::now() - start;
  done = true;
  busy.serve(20);
  flood.join();
  EXPECT_LT(took, std::chrono::seconds(2));
}

TEST_F(BusListenerTest, ServingEndsAtOnceWhenTheOtherDescriptorCanBeRead) {
  stop();
  BusListener waiting(folder.path(), {"UIPCMAIN"}, [](std::span<std::byte>) { return 1; });
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  const Descriptor reading(ends[0]);
  const Descriptor writing(ends[1]);
  waiting.endWhenReadable(reading.number());
  ASSERT_EQ(write(writing.number(), "x", 1), 1);
  const RawClient client(window());
  const auto start = std::chrono::steady_clock::now();
  for (int connectedThenHeard = 0; connectedThenHeard < 2; ++connectedThenHeard) {
    client.send("rubbish");
    waiting.serve(Long_ms);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  EXPECT_EQ(client.answer(), 0);
  waiting.endWhenReadable(-1);
  waiting.serve(1);
}

TEST_F(BusListenerTest, ALivingSimulatorKeepsItsWindows) {
  try {
    BusListener second(folder.path(), {"UIPCMAIN"}, [](std::span<std::byte>) { return 1; });
    FAIL() << "took the window of a living simulator";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 75);
    EXPECT_EQ(error.description(),
              "Cannot listen at " + window() + ": another program is listening there");
  }
  makeBlock();
  EXPECT_EQ(sendRequest().reply, 1);
}

TEST_F(BusListenerTest, TheSocketOfADeadSimulatorIsReplaced) {
  stop();
  const pid_t dying = fork();
  if (dying == 0) {
    new BusListener(folder.path(), {"UIPCMAIN"}, [](std::span<std::byte>) { return 1; });
    _exit(0);
  }
  waitpid(dying, nullptr, 0);
  ASSERT_TRUE(std::filesystem::exists(window()));
  start();
  makeBlock();
  EXPECT_EQ(sendRequest().reply, 1);
}

TEST_F(BusListenerTest, AFileThatIsNoSocketIsNotRemoved) {
  stop();
  std::ofstream(window()) << "mine";
  EXPECT_THROW(BusListener(folder.path(), {"UIPCMAIN"}, [](std::span<std::byte>) { return 1; }),
               RuntimeError);
  EXPECT_TRUE(std::filesystem::is_regular_file(window()));
}

TEST_F(BusListenerTest, TheSocketsGoAwayAtTheEnd) {
  EXPECT_TRUE(std::filesystem::exists(window()));
  stop();
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(BusListenerTest, ASocketThatIsNoLongerItsOwnStays) {
  std::filesystem::remove(window());
  std::ofstream(window()) << "another's";
  stop();
  EXPECT_TRUE(std::filesystem::exists(window()));
}

TEST_F(BusListenerTest, WhenOneWindowIsTakenTheOthersAreGivenBack) {
  EXPECT_THROW(
      BusListener(folder.path(), {"X-System", "UIPCMAIN"}, [](std::span<std::byte>) { return 1; }),
      RuntimeError);
  EXPECT_FALSE(std::filesystem::exists(folder / "X-System"));
}

}  // namespace
}  // namespace vorlent
