#include <QProcess>
#include <QUdpSocket>
#include <csignal>
#include <filesystem>

#include "base/clsIniRw.h"
#include "support/TempFolder.h"
#include "support/places.h"
#include "window/widgets.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

constexpr int Limit_ms = 30000;

/// Below those that systems hand out by themselves: the server's ports are signed 16-bit numbers.
int freePort() {
  const int first = 20000 + static_cast<int>(QCoreApplication::applicationPid() % 10000);
  for (int port = first; port < 32000; ++port) {
    QUdpSocket socket;
    if (socket.bind(QHostAddress::LocalHost, static_cast<quint16>(port))) return port;
  }
  throw std::runtime_error("no free port");
}

/// The real program in an installation of its own, on a bus of its own, drawing into memory.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    fs::copy(dataFolder(), folder.path(), fs::copy_options::recursive);
    for (const std::string name : {"vorlent", "vorlent-sim"})
      fs::copy_file(fs::path(programsFolder()) / name, folder / name);
    fs::create_directories(folder / "network/127.0.0.1/Vorlent");
    set("Platform", "ShareRoot", folder / "network");
    set("Platform", "LocalIp", "127.0.0.1");
    set("Vorlent", "Clients", "1");
    set("Vorlent", "Port", std::to_string(freePort()));
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("VORLENT_BUS", QString::fromStdString(folder / "bus"));
    for (QProcess* process : {&vorlent, &simulator}) process->setProcessEnvironment(environment);
  }
  ~ProgramTest() override {
    for (QProcess* process : {&vorlent, &simulator}) {
      process->kill();
      process->waitForFinished();
    }
  }

  void set(const std::string& section, const std::string& key, const std::string& value) const {
    clsIniRw().WriteKey(section, key, value, folder / "Vorlent.ini");
  }
  std::string get(const std::string& key) const {
    return clsIniRw().ReadKey("Vorlent", key, folder / "Vorlent.ini").asText();
  }
  void start(QProcess& process, const std::string& name) const {
    process.start(QString::fromStdString(folder / name), QStringList());
    ASSERT_TRUE(process.waitForStarted(Limit_ms));
  }
  bool logComesTo(const std::string& line) const {
    return QTest::qWaitFor(
        [&] { return folder.read("log.txt").find(line + "\r\n") != std::string::npos; }, Limit_ms);
  }
  void expectOrderlyEnd() {
    ASSERT_TRUE(vorlent.waitForFinished(Limit_ms));
    EXPECT_EQ(vorlent.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(vorlent.exitCode(), 0);
    EXPECT_TRUE(folder.read("log.txt").ends_with("\r\nQuit\r\n")) << folder.read("log.txt");
  }

  TempFolder folder;
  QProcess vorlent;
  QProcess simulator;
};

TEST_F(ProgramTest, TerminationEndsTheRunningServerInOrder) {
  start(simulator, "vorlent-sim");
  ASSERT_TRUE(simulator.waitForReadyRead(Limit_ms));
  start(vorlent, "vorlent");
  ASSERT_TRUE(logComesTo("OK")) << folder.read("log.txt");
  vorlent.terminate();
  expectOrderlyEnd();
}

TEST_F(ProgramTest, TerminationAcknowledgesTheBoxAboutAMissingSimulator) {
  start(vorlent, "vorlent");
  ASSERT_TRUE(logComesTo("Init IPC")) << folder.read("log.txt");
  vorlent.terminate();
  expectOrderlyEnd();
}

TEST_F(ProgramTest, InterruptEndsTheServerWhileTheCheckListIsUp) {
  set("Vorlent", "ShowTip", "1");
  folder.write("log.txt", "of the last run\r\n");
  start(vorlent, "vorlent");
  // The start deletes the log shortly before it shows the check list.
  ASSERT_TRUE(QTest::qWaitFor([&] { return !fs::exists(folder / "log.txt"); }, Limit_ms));
  ASSERT_EQ(::kill(static_cast<pid_t>(vorlent.processId()), SIGINT), 0);
  expectOrderlyEnd();
  EXPECT_EQ(get("ShowTip"), "1");
}

}  // namespace
}  // namespace vorlent
