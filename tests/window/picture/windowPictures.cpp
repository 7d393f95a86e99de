#include <QApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>
#include <QUdpSocket>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "app/SystemServer.h"
#include "autoflight/clsAfds.h"
#include "base/clsIniRw.h"
#include "cockpits/frmDir.h"
#include "cockpits/frmNew.h"
#include "cockpits/frmSave.h"
#include "cockpits/frmZip.h"
#include "core/FrmTip.h"
#include "core/frmMainClient.h"
#include "core/frmStatus.h"
#include "core/modMain.h"
#include "extras/frmSound.h"
#include "mcp/frmTestMCP.h"
#include "support/TempFolder.h"
#include "support/places.h"
#include "window/MainWindow.h"
#include "window/QtFileChooser.h"
#include "window/QtOperator.h"
#include "window/SoundWindow.h"
#include "window/TestMcpWindow.h"
#include "window/TipWindow.h"
#include "window/cockpitWindows.h"
#include "window/picture/framed.h"
#include "window/picture/stickPictures.h"

namespace {

using namespace vorlent;
namespace fs = std::filesystem;

constexpr int Limit_ms = 20000;
constexpr QSize SmallScreen(1024, 600);

[[noreturn]] void giveUp(const std::string& why) {
  std::fprintf(stderr, "vorlent-screenshot: %s\n", why.c_str());
  std::exit(1);
}

/// Nobody is there to acknowledge anything, or to close a window.
class PictureOperator : public QtOperator {
 public:
  void messageBox(const std::string& text, BoxIcon, const std::string&) override { giveUp(text); }
  void showForm(Form& form, Modality) override {
    QtOperator::showForm(form, Modality::NonModal);
    QApplication::processEvents();
  }
};

/// The folder as shipped, on a bus and in a network of its own.
void prepare(const TempFolder& folder) {
  qputenv("VORLENT_BUS", QByteArray::fromStdString(folder / "bus"));
  fs::copy(dataFolder(), folder.path(), fs::copy_options::recursive);
  fs::create_directories(folder / "Network/127.0.0.1/Vorlent");
  const std::string ini = folder / "Vorlent.ini";
  clsIniRw().WriteKey("Platform", "ShareRoot", folder / "Network", ini);
  clsIniRw().WriteKey("Platform", "LocalIp", "127.0.0.1", ini);
}

/// A display that has the aircraft flown.
void flyAsDisplay(const Server& server) {
  QUdpSocket display;
  const auto say = [&](const char* words) {
    display.writeDatagram(words, QHostAddress::LocalHost,
                          static_cast<quint16>(server.store.BasePort));
  };
  say("Connection on 1 1 100 display");
  if (!QTest::qWaitFor([&] { return server.main->AnyClientUp(); }, Limit_ms))
    giveUp("the display's greeting was not heard");
  // The autoflight's start forgets what was said before.
  const auto started = [&] {
    return server.autoflight.afds->fmc.PhaseOfFlightEnum != Phase::Reset;
  };
  if (!QTest::qWaitFor(started, Limit_ms)) giveUp("the autoflight does not start");
  say("p A 81 8000 A 82 45 A 84 250 P 163 1 P 183 1 P 172 1 P 167 1 ");
  const auto flying = [&] { return server.status->lblRollEngaged.Caption() == "HDG_SEL"; };
  if (!QTest::qWaitFor(flying, Limit_ms)) giveUp("the autopilot does not fly");
}

void save(QWidget& window, const QString& path) {
  QApplication::processEvents();
  if (!framed(window).save(path)) giveUp("cannot write " + path.toStdString());
}

/// A folder whose name tells what it is.
class OldVersion {
 public:
  OldVersion() : path_(fs::temp_directory_path() / "Vorlent 6") {
    fs::create_directories(path_ / "Cockpits");
    fs::create_directories(path_ / "Templates");
  }
  ~OldVersion() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  OldVersion(const OldVersion&) = delete;
  OldVersion& operator=(const OldVersion&) = delete;
  std::string path() const { return path_.string(); }

 private:
  fs::path path_;
};

/// The windows that the main window leads to, each by what an operator presses.
class OtherWindows {
 public:
  OtherWindows(Server& server, PictureOperator& screen, const Guard& guard)
      : server_(server),
        guard_(guard),
        tip_(*server.tip, guard),
        testMcp_(*server.testMcp, guard),
        make_(newWindow(*server.newCockpit, guard)),
        save_(saveWindow(*server.saveTemplate, guard)),
        import_(importWindow(*server.importOld, guard)),
        zip_(zipWindow(*server.zip, guard)),
        sound_(*server.soundForm, guard) {
    screen.add(*server.tip, tip_);
    screen.add(*server.testMcp, testMcp_);
    screen.add(*server.newCockpit, *make_);
    screen.add(*server.saveTemplate, *save_);
    screen.add(*server.importOld, *import_);
    screen.add(*server.zip, *zip_);
    screen.add(*server.soundForm, sound_);
  }

  void draw(const QString& folder) {
    frmMainClient& main = *server_.mainClient;
    drawPanel(folder + "/test-mcp.png");
    show(main.mnuHelp(2), *server_.tip, tip_, folder + "/check-list.png");
    show(main.mnuFile(1), *server_.saveTemplate, *save_, folder + "/save-template.png");
    server_.importOld->Visible.addView(
        [this] { typeInto(server_.importOld->txtPath, old_.path()); });
    show(main.mnuFile(0), *server_.importOld, *import_, folder + "/import-panels.png");
    server_.zip->Visible.addView(
        [this] { typeInto(server_.zip->txtFile, "/home/captain/737-700.zip"); });
    show(main.mnuFile(3), *server_.zip, *zip_, folder + "/export-cockpit.png");
    show(main.mnuFile(4), *server_.zip, *zip_, folder + "/import-cockpit.png");
    show(main.cmdSound, *server_.soundForm, sound_, folder + "/sound.png");
    show(main.Command1, *server_.newCockpit, *make_, folder + "/new-aircraft.png");
  }

 private:
  static void typeInto(TextBox& box, const std::string& text) {
    box.Text(text);
    box.loseFocus();
  }
  void show(const Button& button, Form& form, QWidget& window, const QString& path) {
    guard_([&button] { button.press(); });
    save(window, path);
    guard_([&form] { form.close(); });
  }
  /// Its opening starts the cycle anew, with the modes that are engaged.
  void drawPanel(const QString& path) {
    constexpr int HdgSel = 9;
    frmTestMCP& panel = *server_.testMcp;
    guard_([this] { server_.mainClient->Command2.press(); });
    const auto flying = [&] {
      return !panel.lblCycle.Alarm() && panel.Command1(HdgSel).BackColor() == frmTestMCP::Lit;
    };
    if (!QTest::qWaitFor(flying, Limit_ms)) giveUp("the panel does not get ready");
    save(testMcp_, path);
    panel.close();
  }

  Server& server_;
  Guard guard_;
  TipWindow tip_;
  TestMcpWindow testMcp_;
  std::unique_ptr<FormDialog> make_, save_, import_, zip_;
  SoundWindow sound_;
  const OldVersion old_;
};

void draw(const QString& place, QSize size) {
  const TempFolder folder;
  prepare(folder);
  QProcess simulator;
  simulator.start(QCoreApplication::applicationDirPath() + "/vorlent-sim", QStringList());
  if (!simulator.waitForReadyRead(Limit_ms)) giveUp("vorlent-sim does not start");

  PictureOperator screen;
  QtFileChooser chooser(systemDrives());
  SystemServer host(folder.path(), screen, chooser);
  Server& server = host.server();
  FailureDomain& domain = server.failureDomain;
  const Guard guard = [&](const auto& work) { domain.run(work); };
  MainWindow window(*server.mainClient, *server.status, guard);
  screen.add(*server.mainClient, window);
  OtherWindows others(server, screen, guard);
  domain.run([&] { server.main->Main(); });
  window.resize(size.width() - 2, size.height() - Title_px - 1);
  flyAsDisplay(server);
  save(window, place + "/main.png");
  others.draw(place);
  domain.run([&] { server.mainClient->cmdExit4.press(); });

  simulator.terminate();
  simulator.waitForFinished(Limit_ms);
}

/// A screen of this size, which QT_SCALE_FACTOR enlarges with all that is on it.
void setUpScreen(QSize size, const std::string& configuration) {
  const QByteArray factor = qgetenv("QT_SCALE_FACTOR");
  const QSize pixels = size * (factor.isEmpty() ? 1 : factor.toDouble());
  const QJsonObject screen{{"name", "picture"},
                           {"x", 0},
                           {"y", 0},
                           {"width", pixels.width()},
                           {"height", pixels.height()},
                           {"logicalDpi", 96},
                           {"logicalBaseDpi", 96},
                           {"dpr", 1}};
  std::ofstream(configuration)
      << QJsonDocument(QJsonObject{{"screens", QJsonArray{screen}}}).toJson().toStdString();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QByteArray::fromStdString(configuration));
}

/// Light letters on a dark ground, as a desktop's dark look has them.
void goDark() {
  QPalette dark(QColor(0x30, 0x34, 0x38), QColor(0x2a, 0x2d, 0x31));
  dark.setColor(QPalette::Base, QColor(0x1e, 0x20, 0x23));
  dark.setColor(QPalette::Highlight, QColor(0x2d, 0x6c, 0xa2));
  QApplication::setPalette(dark);
}

}  // namespace

/// Draws every window of a running server, with the built-in simulator behind it and a display that
/// has the aircraft flown, into PNG files in the folder of the argument: on a screen of 1024 by
/// 600, or as large as the two arguments behind it say; "dark" behind these is another look.
/// QT_SCALE_FACTOR enlarges all of it.
int main(int argc, char** argv) {
  const std::vector<QString> words(argv + 1, argv + argc);
  if (words.empty() || words.size() == 2 || !QFileInfo(words[0]).isDir())
    giveUp("say where the pictures go: vorlent-screenshot docs/windows [width height [dark]]");
  const QSize size = words.size() == 1 ? SmallScreen : QSize(words[1].toInt(), words[2].toInt());
  const TempFolder configuration;
  setUpScreen(size, configuration / "screen.json");
  int none = 1;
  const QApplication application(none, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (words.size() > 3 && words[3] == "dark") goDark();
  draw(words[0], size);
  if (!drawStickWindows(argv[1])) giveUp(std::string("cannot write into ") + argv[1]);
  return 0;
}
