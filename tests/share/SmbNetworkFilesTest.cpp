#include "platform/linux/SmbNetworkFiles.h"

#include <chrono>
#include <filesystem>
#include <string>

#include "gtest/gtest.h"
#include "share/support/FailingWire.h"
#include "share/support/Samba.h"
#include "share/support/loopback.h"
#include "support/VirtualEventLoop.h"
#include "support/places.h"

namespace vorlent {
namespace {

using namespace std::chrono_literals;

template <class Work>
std::chrono::milliseconds timeOf(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                               start);
}

const std::string Exec = "\\\\127.0.0.1\\Tarnwick\\FMS\\EXEC";

/// Less than the deadline of a second.
constexpr auto AtOnce = 900ms;
constexpr auto BusyMachine = 10s;

class SmbNetworkFilesTest : public testing::Test {
 protected:
  SmbNetworkFilesTest() { samba.folder.write("Tarnwick/FMS/EXEC", "plan\r\n"); }
  /// With a deadline that a busy machine keeps, too.
  SmbNetworkFiles filesAt(std::uint16_t port, const ShareCredentials& as = {},
                          std::chrono::milliseconds deadline = BusyMachine) {
    return SmbNetworkFiles({programsFolder() + "/vorlent-share", as, port, deadline}, clock);
  }
  SmbNetworkFiles hastyFilesAt(std::uint16_t port) {
    return filesAt(port, {}, SmbNetworkFiles::Deadline);
  }
  SmbNetworkFiles filesOf(const std::string& user, const std::string& password) {
    return filesAt(samba.port(), {user, password, ""});
  }

  Samba samba;
  VirtualEventLoop clock;
  SmbNetworkFiles files = filesAt(samba.port());
};

TEST_F(SmbNetworkFilesTest, ReadsHostShareAndPathInAnyCaseOfLetters) {
  EXPECT_EQ(files.read(Exec), "plan\r\n");
  EXPECT_EQ(files.read("\\\\LOCALHOST\\tarnwick\\fms\\exec"), "plan\r\n");
  EXPECT_EQ(files.read("//127.0.0.1/Tarnwick/FMS/EXEC"), "plan\r\n");
}

TEST_F(SmbNetworkFilesTest, FilesFoldersAndSharesExistAndOthersDoNot) {
  EXPECT_TRUE(files.exists(Exec));
  EXPECT_TRUE(files.exists("\\\\127.0.0.1\\Tarnwick\\FMS"));
  EXPECT_TRUE(files.exists("\\\\127.0.0.1\\Tarnwick"));
  EXPECT_TRUE(files.exists("\\\\127.0.0.1\\Tarnwick\\"));
  EXPECT_FALSE(files.exists("\\\\127.0.0.1\\Tarnwick\\FMS\\PROF"));
  EXPECT_FALSE(files.exists("\\\\127.0.0.1\\Tarnwick\\none\\EXEC"));
  EXPECT_FALSE(files.exists("\\\\127.0.0.1\\NoShare"));
  EXPECT_FALSE(files.exists("\\\\127.0.0.1"));
  EXPECT_FALSE(files.exists("C:\\EXEC"));
}

TEST_F(SmbNetworkFilesTest, WhatIsNotThereIsNotReadAndNotTooLarge) {
  const NetworkContent none = files.read("\\\\127.0.0.1\\Tarnwick\\FMS\\PROF");
  EXPECT_EQ(none, std::nullopt);
  EXPECT_FALSE(none.tooLarge);
  EXPECT_EQ(files.read("\\\\127.0.0.1\\Tarnwick\\FMS"), std::nullopt);
}

TEST_F(SmbNetworkFilesTest, EveryByteComesThrough) {
  std::string bytes;
  for (int i = 0; i < 300'000; ++i) bytes += static_cast<char>(i * 7 % 256);
  samba.folder.write("Tarnwick/bytes", bytes);
  EXPECT_TRUE(files.read("\\\\127.0.0.1\\Tarnwick\\bytes") == bytes);
  EXPECT_TRUE(files.write("\\\\127.0.0.1\\Tarnwick\\copy", bytes));
  EXPECT_TRUE(samba.folder.read("Tarnwick/copy") == bytes);
  samba.folder.write("Tarnwick/empty", "");
  EXPECT_EQ(files.read("\\\\127.0.0.1\\Tarnwick\\empty"), "");
}

TEST_F(SmbNetworkFilesTest, NamesMayHaveAnySign) {
  samba.folder.write("Tarnwick/100% of it; #1 + \xC3\xA4.cfg", "odd");
  EXPECT_EQ(files.read("\\\\127.0.0.1\\Tarnwick\\100% of it; #1 + \xC3\xA4.cfg"), "odd");
}

TEST_F(SmbNetworkFilesTest, NoPathLeavesItsShare) {
  EXPECT_EQ(files.read("\\\\127.0.0.1\\ReadOnly\\..\\Tarnwick\\FMS\\EXEC"), std::nullopt);
  EXPECT_EQ(files.read("\\\\127.0.0.1\\Tarnwick\\FMS\\..\\FMS\\EXEC"), std::nullopt);
  EXPECT_EQ(files.read("\\\\127.0.0.1:445\\Tarnwick\\FMS\\EXEC"), std::nullopt);
  EXPECT_EQ(files.read(Exec + std::string("\0", 1)), std::nullopt);
}

TEST_F(SmbNetworkFilesTest, AFileBeyondTheLimitIsNotReadAndToldApartFromNone) {
  samba.folder.write("Tarnwick/large", std::string(1'048'576, 'x'));
  EXPECT_EQ(files.read("\\\\127.0.0.1\\Tarnwick\\large")->size(), 1'048'576u);
  std::filesystem::resize_file(samba.folder / "Tarnwick/large", 1'048'577);
  EXPECT_TRUE(files.read("\\\\127.0.0.1\\Tarnwick\\large").tooLarge);
  EXPECT_EQ(files.read("\\\\127.0.0.1\\Tarnwick\\large"), std::nullopt);
  std::filesystem::resize_file(samba.folder / "Tarnwick/large", 100'000'000);
  EXPECT_TRUE(
      files.read("\\\\127.0.0.1\\Tarnwick\\large", NetworkFiles::MostOfAPlan_bytes).tooLarge);
}

TEST_F(SmbNetworkFilesTest, WritesReplacesAndRemoves) {
  const std::string active = "\\\\127.0.0.1\\Tarnwick\\FMS\\ACTIVE";
  EXPECT_TRUE(files.write(active, "first and longer"));
  EXPECT_TRUE(files.write(active, "2"));
  EXPECT_EQ(samba.folder.read("Tarnwick/FMS/ACTIVE"), "2");
  EXPECT_EQ(files.read(active), "2");
  EXPECT_TRUE(files.remove(active));
  EXPECT_FALSE(files.exists(active));
  EXPECT_FALSE(files.remove(active));
}

TEST_F(SmbNetworkFilesTest, FoldersAreNeitherMadeNorWrittenNorRemoved) {
  EXPECT_FALSE(files.write("\\\\127.0.0.1\\Tarnwick\\none\\ACTIVE", "x"));
  EXPECT_FALSE(files.exists("\\\\127.0.0.1\\Tarnwick\\none"));
  EXPECT_FALSE(files.write("\\\\127.0.0.1\\Tarnwick\\FMS", "x"));
  EXPECT_FALSE(files.remove("\\\\127.0.0.1\\Tarnwick\\FMS"));
  std::filesystem::create_directory(samba.folder / "Tarnwick/empty");
  EXPECT_FALSE(files.remove("\\\\127.0.0.1\\Tarnwick\\empty"));
  EXPECT_TRUE(files.exists("\\\\127.0.0.1\\Tarnwick\\empty"));
  EXPECT_TRUE(files.exists(Exec));
}

TEST_F(SmbNetworkFilesTest, AReadOnlyShareIsReadAndNotChanged) {
  samba.folder.write("ReadOnly/EXEC", "plan");
  const std::string path = "\\\\127.0.0.1\\ReadOnly\\EXEC";
  EXPECT_EQ(files.read(path), "plan");
  EXPECT_FALSE(files.write(path, "other"));
  EXPECT_FALSE(files.write("\\\\127.0.0.1\\ReadOnly\\ACTIVE", "x"));
  EXPECT_FALSE(files.remove(path));
  EXPECT_EQ(samba.folder.read("ReadOnly/EXEC"), "plan");
  EXPECT_EQ(files.read(path), "plan") << "a refusal makes no host absent";
}

TEST_F(SmbNetworkFilesTest, AShareOfAUserOpensToHisPasswordAlone) {
  samba.folder.write("Private/EXEC", "secret");
  const std::string path = "\\\\127.0.0.1\\Private\\EXEC";
  EXPECT_EQ(filesOf(samba.user(), "password").read(path), "secret");
  EXPECT_EQ(filesOf(samba.user(), "wrong").read(path), std::nullopt);
  EXPECT_EQ(filesOf("nobody-here", "password").read(path), std::nullopt);
  EXPECT_EQ(files.read(path), std::nullopt);
}

TEST_F(SmbNetworkFilesTest, AWrongPasswordDoesNotBecomeAnonymousAccess) {
  EXPECT_EQ(filesOf(samba.user(), "wrong").read(Exec), std::nullopt);
  EXPECT_EQ(filesOf(samba.user(), "password").read(Exec), "plan\r\n");
}

TEST_F(SmbNetworkFilesTest, WhereNobodyServesNothingIsThereAtOnce) {
  SmbNetworkFiles toNobody = filesAt(freeTcpPort());
  EXPECT_FALSE(toNobody.exists(Exec));
  EXPECT_LT(timeOf([&] { EXPECT_EQ(toNobody.read(Exec), std::nullopt); }), AtOnce);
}

TEST_F(SmbNetworkFilesTest, AHostThatRestartedIsThereAgain) {
  ASSERT_EQ(files.read(Exec), "plan\r\n");
  samba.stop();
  EXPECT_EQ(files.read(Exec), std::nullopt);
  samba.start();
  EXPECT_EQ(files.read(Exec), "plan\r\n");
}

TEST_F(SmbNetworkFilesTest, ARestartBetweenTwoCallsIsNotNoticed) {
  ASSERT_EQ(files.read(Exec), "plan\r\n");
  samba.stop();
  samba.start();
  EXPECT_EQ(files.read(Exec), "plan\r\n");
}

TEST_F(SmbNetworkFilesTest, AHostThatHangsCostsOneDeadlineThenNothingFor30Seconds) {
  SmbNetworkFiles hasty = hastyFilesAt(samba.port());
  ASSERT_EQ(hasty.read(Exec), "plan\r\n");
  samba.suspend();
  const auto stall = timeOf([&] { EXPECT_EQ(hasty.read(Exec), std::nullopt); });
  EXPECT_GE(stall, 1000ms);
  EXPECT_LT(stall, BusyMachine);
  samba.resume();
  const auto absent = [&] {
    return timeOf([&] {
      EXPECT_FALSE(hasty.exists(Exec));
      EXPECT_EQ(hasty.read("\\\\127.0.0.1\\ReadOnly\\x"), std::nullopt);
      EXPECT_FALSE(hasty.write(Exec, "x"));
      EXPECT_FALSE(hasty.remove(Exec));
    });
  };
  EXPECT_LT(absent(), AtOnce);
  clock.advance(29'999);
  EXPECT_LT(absent(), AtOnce);
  clock.advance(1);
  EXPECT_EQ(hasty.read(Exec), "plan\r\n");
}

TEST_F(SmbNetworkFilesTest, AHostThatNeverGreetsCostsOneDeadline) {
  SmbNetworkFiles hasty = hastyFilesAt(samba.port());
  samba.suspend();
  const auto stall = timeOf([&] { EXPECT_FALSE(hasty.exists(Exec)); });
  EXPECT_GE(stall, 1000ms);
  EXPECT_LT(stall, BusyMachine);
  EXPECT_LT(timeOf([&] { EXPECT_FALSE(hasty.exists(Exec)); }), AtOnce);
}

TEST_F(SmbNetworkFilesTest, OneHostsAbsenceIsNotAnothers) {
  SmbNetworkFiles hasty = hastyFilesAt(samba.port());
  samba.suspend();
  EXPECT_FALSE(hasty.exists(Exec));
  samba.resume();
  EXPECT_EQ(hasty.read("\\\\localhost\\Tarnwick\\FMS\\EXEC"), "plan\r\n");
  EXPECT_FALSE(hasty.exists(Exec));
}

class CutOffFile : public SmbNetworkFilesTest {
 protected:
  /// More than what is said before a file's first byte.
  static constexpr std::size_t HalfOfTheFile_bytes = 500'000;
  CutOffFile() { samba.folder.write("Tarnwick/large", std::string(1'000'000, 'x')); }
  const std::string large = "\\\\127.0.0.1\\Tarnwick\\large";
};

TEST_F(CutOffFile, AHostThatIsGoneInTheMiddleOfAFileLeavesNothingOfIt) {
  const FailingWire wire(samba.port(), HalfOfTheFile_bytes, FailingWire::End::Breaks);
  SmbNetworkFiles cut = filesAt(wire.port());
  EXPECT_EQ(cut.read(Exec), "plan\r\n");
  const NetworkContent none = cut.read(large);
  EXPECT_EQ(none, std::nullopt);
  EXPECT_FALSE(none.tooLarge);
}

TEST_F(CutOffFile, AHostThatFallsSilentInTheMiddleOfAFileCostsOneDeadline) {
  const FailingWire wire(samba.port(), HalfOfTheFile_bytes, FailingWire::End::IsSilent);
  SmbNetworkFiles cut = hastyFilesAt(wire.port());
  const auto stall = timeOf([&] { EXPECT_EQ(cut.read(large), std::nullopt); });
  EXPECT_GE(stall, 1000ms);
  EXPECT_LT(stall, BusyMachine);
  EXPECT_LT(timeOf([&] { EXPECT_EQ(cut.read(Exec), std::nullopt); }), AtOnce);
}

TEST_F(SmbNetworkFilesTest, WithoutTheHelperNothingIsThere) {
  SmbNetworkFiles helpless({samba.folder / "no-helper", {}, samba.port(), BusyMachine}, clock);
  EXPECT_FALSE(helpless.exists(Exec));
  EXPECT_EQ(helpless.read(Exec), std::nullopt);
}

TEST_F(SmbNetworkFilesTest, TheHelperEndsWithItsServer) {
  std::array<int, 2> ends{};
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
  Descriptor servers(ends[0]);
  Descriptor helpers(ends[1]);
  const auto helper =
      ChildProcess::start({programsFolder() + "/vorlent-share"}, helpers.number(), -1);
  ASSERT_TRUE(helper);
  helpers = Descriptor();
  servers = Descriptor();
  EXPECT_TRUE(helper->awaitEnd(20'000));
}

}  // namespace
}  // namespace vorlent
