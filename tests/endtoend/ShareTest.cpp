#include <gmock/gmock.h>
#include <signal.h>

#include <cerrno>
#include <filesystem>
#include <sstream>

#include "base/clsIniRw.h"
#include "endtoend/Cockpit.h"
#include "share/support/Samba.h"
#include "support/eventually.h"
#include "support/places.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A whole plan of two rows: the waypoint behind the aircraft, and the one that it flies to.
std::string execTo(const std::string& waypoint) {
  const std::string between = "\"\",\"\",0,0,62.2,0,0,0,0,0,0,0,0,0,0,0,12000,0,0,\"\",0,";
  return "1\r\n\"START\"," + between + "50,8,55.35786,42.57035\r\n\"" + waypoint + "\"," + between +
         "50.3,8.9,51.71264,26.94194\r\n";
}

/// A server that reads a real share, and a display whose machine has it.
class SharedPlan : public testing::Test {
 protected:
  SharedPlan() {
    for (const std::string helper : {"vorlent-share", "vorlent-mdb"}) cockpit.addProgram(helper);
    set("ShareRoot", "");
    set("SharePort", std::to_string(samba.port()));
    fs::copy(dataFolder() + "/Network/display/Tarnwick", samba.folder / "Tarnwick",
             fs::copy_options::recursive);
    samba.folder.write("Tarnwick/FMS/EXEC", execTo("ALPHA"));
    samba.folder.write("Tarnwick/FMS/PROF", execTo("ALPHA"));
    putDatabase("temp.mdb");
  }
  void set(const std::string& key, const std::string& value) const {
    clsIniRw().WriteKey("Platform", key, value, cockpit.folder / "Vorlent.ini");
  }
  void putDatabase(const std::string& name) const {
    fs::create_directories(samba.folder / "Tarnwick/FMS/db");
    fs::copy_file(testsFolder() + "/database/files/" + name,
                  samba.folder / "Tarnwick/FMS/db/temp.mdb", fs::copy_options::overwrite_existing);
  }
  void start() {
    cockpit.startSimulator();
    cockpit.bringServerUp();
  }
  void execute() const {
    display.send(cockpit.basePort, "Connection on a b 50 localhost");
    ASSERT_TRUE(display.receive("Data "));
    display.send(cockpit.basePort, "p P 218 1 ");
  }
  bool activeBecomes(const std::string& waypoint) const {
    return eventually([&] {
      return samba.folder.read("Tarnwick/FMS/ACTIVE").find(waypoint) != std::string::npos;
    });
  }
  std::vector<pid_t> childrenOfServer() const {
    const std::string id = std::to_string(cockpit.server->id());
    std::ifstream list("/proc/" + id + "/task/" + id + "/children");
    return {std::istream_iterator<pid_t>(list), {}};
  }

  Samba samba;
  Cockpit cockpit;
  DisplaySocket display;
};

TEST_F(SharedPlan, IsReadAndTheWaypointFlownToIsWrittenBeside) {
  start();
  execute();
  EXPECT_TRUE(activeBecomes("ALPHA")) << cockpit.server->output();
}

TEST_F(SharedPlan, ADamagedDatabaseCostsALineAndThePlanIsFlown) {
  putDatabase("truncated.mdb");
  start();
  execute();
  EXPECT_TRUE(cockpit.server->waitForLine("1| temp.mdb: The file is damaged"))
      << cockpit.server->output();
  EXPECT_TRUE(activeBecomes("ALPHA"));
}

TEST_F(SharedPlan, CredentialsThatOthersCanReadAreRefusedAndTheServerGoesOn) {
  cockpit.folder.write("shares.txt", "user = captain\npassword = secret\n");
  fs::permissions(cockpit.folder / "shares.txt",
                  fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
  set("ShareCredentials", "shares.txt");
  start();
  EXPECT_THAT(cockpit.server->output(), HasSubstr("can be read by others than its owner"));
  EXPECT_THAT(cockpit.server->output(), testing::Not(HasSubstr("secret")));
  execute();
  EXPECT_TRUE(activeBecomes("ALPHA"));
}

TEST_F(SharedPlan, TheHelperEndsWithAServerThatIsKilled) {
  start();
  execute();
  ASSERT_TRUE(activeBecomes("ALPHA"));
  const auto helpers = childrenOfServer();
  ASSERT_EQ(helpers.size(), 1u);
  EXPECT_EQ(fs::read_symlink("/proc/" + std::to_string(helpers[0]) + "/exe"),
            cockpit.folder / "vorlent-share");
  cockpit.server->signal(SIGKILL);
  // Gone, or a zombie that whoever takes in orphans has not looked after.
  EXPECT_TRUE(eventually([&] {
    std::error_code gone;
    return fs::read_symlink("/proc/" + std::to_string(helpers[0]) + "/exe", gone).empty();
  }));
}

}  // namespace
}  // namespace vorlent
