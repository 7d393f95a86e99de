#include "endtoend/InstalledPrograms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <regex>
#include <set>

#include "base/clsIniRw.h"
#include "endtoend/Cockpit.h"
#include "share/support/Samba.h"
#include "support/places.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

std::set<std::string> filesBelow(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_regular_file()) names.insert(fs::relative(entry.path(), folder));
  return names;
}

class Installed : public testing::Test {
 protected:
  /// Starts the simulator, which fills the user's folder, and gives it ports of its own.
  void startSimulator() {
    simulator = package.program("vorlent-sim");
    ASSERT_TRUE(simulator->waitForLine("ready")) << simulator->output();
    configure();
  }
  void configure() const {
    set("Vorlent", "Port", std::to_string(port));
    set("Vorlent", "Clients", "1");
    set("Platform", "LocalIp", "127.0.0.1");
    // It is shared already, so that the server does not ask the machine's own Samba for it.
    std::filesystem::create_directories(package.own("Network/127.0.0.1/Vorlent"));
  }
  void set(const char* section, const char* key, const std::string& value) const {
    clsIniRw().WriteKey(section, key, value, package.own("Vorlent.ini"));
  }
  std::unique_ptr<Process> startService() const {
    return package.start(VORLENT_AS_SYSTEMD,
                         {package.installed("lib/systemd/user/vorlentd.service")});
  }
  std::string waiter() const {
    return package.installed("libexec/vorlent/vorlentd-behind-simulator");
  }
  bool aDisplayIsServed() const {
    const DisplaySocket display;
    display.send(port, "Connection on a b 50 localhost");
    return display.receive("Data ").has_value();
  }
  static int statusOf(Process& program) { return program.waitForEnd().value_or(-1); }

  InstalledPrograms package;
  const std::uint16_t port = freePorts(1);
  std::unique_ptr<Process> simulator;
};

TEST_F(Installed, TheFirstStartFillsTheUsersFolderWithAllThatIsShipped) {
  startSimulator();
  // The test has written a key or two, each with a backup.
  auto own = filesBelow(package.ownFolder());
  for (const char* backup : {"Vorlent.ini.bak1", "Vorlent.ini.bak2", "Vorlent.ini.bak3"})
    own.erase(backup);
  auto shipped = filesBelow(dataFolder());
  shipped.insert("Docs/manual.htm");  // made of the pages
  shipped.insert("Docs/.shipped");    // what of it the user has not changed
  EXPECT_EQ(own, shipped);
  EXPECT_FALSE(fs::exists(package.ownFolder() + "/log.txt"));
}

TEST_F(Installed, SimulatorAndServerWorkInTheUsersFolderAndNowhereElse) {
  startSimulator();
  const auto shipped = filesBelow(package.folder / "usr");
  const auto server = package.program("vorlentd");
  ASSERT_TRUE(server->waitForLine("1| OK")) << server->output();
  EXPECT_TRUE(aDisplayIsServed());
  set("Vorlent", "A key of mine", "kept");
  server->signal(SIGTERM);
  EXPECT_EQ(statusOf(*server), 0) << server->output();
  EXPECT_TRUE(fs::exists(package.own("log.txt")));
  EXPECT_EQ(clsIniRw().ReadKey("Vorlent", "A key of mine", package.own("Vorlent.ini")).asText(),
            "kept");
  EXPECT_EQ(filesBelow(package.folder / "usr"), shipped);
}

TEST_F(Installed, AHomeThatCannotHoldTheFilesIsToldAndEndsTheStart) {
  package.folder.write("home/file", "no folder");
  package.home = "home/file";
  const std::string reason = "Couldn't copy the files of " + package.installed("share/vorlent") +
                             " to " + package.ownFolder() + ": Not a directory";
  const auto server = package.program("vorlentd");
  EXPECT_EQ(statusOf(*server), 1);
  EXPECT_EQ(server->output(), "box critical \"Vorlent\": " + reason + "\n");
  simulator = package.program("vorlent-sim");
  EXPECT_EQ(statusOf(*simulator), 1);
  EXPECT_EQ(simulator->output(), "vorlent-sim: " + reason + "\n");
}

TEST_F(Installed, TheServiceServesAgainAfterASimulatorThatCrashed) {
  startSimulator();
  const auto service = startService();
  ASSERT_TRUE(service->waitForLine("1| OK")) << service->output();
  ASSERT_TRUE(aDisplayIsServed())
      << service->output();  // without one nothing is polled, and nobody notices
  simulator->signal(SIGKILL);
  ASSERT_TRUE(service->waitForLine("ended with 1")) << service->output();
  // Its socket still stands there, and nobody answers: an orderly end, and another try.
  ASSERT_TRUE(service->waitForLine("ended with 0")) << service->output();
  simulator = package.program("vorlent-sim");
  const auto back = std::chrono::steady_clock::now();
  ASSERT_TRUE(service->waitForLine("1| OK")) << service->output();
  EXPECT_LT(std::chrono::steady_clock::now() - back, 10s);
  EXPECT_TRUE(aDisplayIsServed());
}

TEST_F(Installed, TheServiceWaitsForASimulatorWithoutAStart) {
  package.folder.write("tools/sleep", "#!/bin/sh\necho waiting\nexec /bin/sleep \"$@\"\n");
  fs::permissions(package.folder / "tools/sleep", fs::perms::owner_all);
  const auto service =
      package.start("/usr/bin/env", {"PATH=" + package.folder / "tools:/usr/bin:/bin", waiter()});
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(service->waitForLine("waiting")) << service->output();
  EXPECT_EQ(service->output(), "waiting\nwaiting\n");
  startSimulator();
  EXPECT_TRUE(service->waitForLine("1| OK")) << service->output();
}

TEST_F(Installed, TheServiceFindsTheSimulatorInTheRuntimeFolder) {
  fs::create_directories(package.folder / "run");
  const auto inRuntimeFolder = [this](const std::string& program) {
    return package.start("/usr/bin/env", {"-u", "VORLENT_BUS",
                                          "XDG_RUNTIME_DIR=" + package.folder / "run", program});
  };
  simulator = inRuntimeFolder(package.installed("bin/vorlent-sim"));
  ASSERT_TRUE(simulator->waitForLine("ready")) << simulator->output();
  configure();
  const auto service = inRuntimeFolder(waiter());
  EXPECT_TRUE(service->waitForLine("1| OK")) << service->output();
}

std::set<std::string> optionsIn(const std::string& text) {
  const std::regex option("--[a-z][a-z-]*");
  return {std::sregex_token_iterator(text.begin(), text.end(), option), {}};
}

std::string manualOf(const InstalledPrograms& package, const std::string& name) {
  const std::string page = package.installed("share/man/man1/" + name + ".1.gz");
  Process shown("/bin/sh", {"-c", "gzip -dc \"$0\" | sed 's/\\\\-/-/g'", page}, {});
  shown.waitForEnd();
  return shown.output();
}

TEST_F(Installed, TheServerFindsItsHelpers) {
  const Samba samba;
  samba.folder.write("Tarnwick/FMS/db/temp.mdb", "no database");
  startSimulator();
  set("Platform", "ShareRoot", "");
  set("Platform", "SharePort", std::to_string(samba.port()));
  const auto server = package.program("vorlentd");
  ASSERT_TRUE(server->waitForLine("1| OK")) << server->output();
  EXPECT_TRUE(aDisplayIsServed());
  EXPECT_TRUE(server->waitForLine("1| temp.mdb: The file is no Access database"))
      << server->output();
}

TEST_F(Installed, EveryProgramHasAManual) {
  for (const std::string& name : filesBelow(package.installed("bin")))
    EXPECT_THAT(manualOf(package, name), HasSubstr(".SH NAME\n" + name)) << name;
}

TEST_F(Installed, AManualHasTheOptionsOfItsProgram) {
  for (const std::string name :
       {"vorlent", "vorlentd", "vorlent-sim", "vorlent-check", "vorlent-bridge", "vorlent-display",
        "vorlent-stick", "vorlent-sound", "vorlent-plan", "vorlent-web", "vorlent-keeper",
        "vorlent-replay"}) {
    const auto program = package.program(name, {"--help"});
    EXPECT_EQ(statusOf(*program), 0);
    EXPECT_EQ(optionsIn(manualOf(package, name)), optionsIn(program->output())) << name;
  }
}

}  // namespace
}  // namespace vorlent
