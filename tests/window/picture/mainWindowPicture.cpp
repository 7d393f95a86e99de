#include <QApplication>
#include <QProcess>
#include <QTest>
#include <QUdpSocket>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "app/LinuxServer.h"
#include "autoflight/clsAfds.h"
#include "base/clsIniRw.h"
#include "core/frmMainClient.h"
#include "core/frmStatus.h"
#include "core/modMain.h"
#include "support/TempFolder.h"
#include "support/places.h"
#include "window/MainWindow.h"
#include "window/QtOperator.h"
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

/// Nobody is there to acknowledge anything.
class PictureOperator : public QtOperator {
 public:
  void messageBox(const std::string& text, BoxIcon, const std::string&) override { giveUp(text); }
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
  say("p A 81 8000 P 163 1 P 183 1 P 172 1 P 167 1 ");
  const auto flying = [&] { return server.status->lblRollEngaged.Caption() == "HDG_SEL"; };
  if (!QTest::qWaitFor(flying, Limit_ms)) giveUp("the autopilot does not fly");
}

void draw(const std::string& path, QSize size) {
  const TempFolder folder;
  prepare(folder);
  QProcess simulator;
  simulator.start(QCoreApplication::applicationDirPath() + "/vorlent-sim", QStringList());
  if (!simulator.waitForReadyRead(Limit_ms)) giveUp("vorlent-sim does not start");

  PictureOperator screen;
  LinuxServer host(folder.path(), screen);
  Server& server = host.server();
  FailureDomain& domain = server.failureDomain;
  MainWindow window(*server.mainClient, *server.status,
                    [&](const auto& work) { domain.run(work); });
  screen.add(*server.mainClient, window);
  domain.run([&] { server.main->Main(); });
  window.resize(size.width() - 2, size.height() - Title_px - 1);
  flyAsDisplay(server);
  if (!framed(window).save(QString::fromStdString(path))) giveUp("cannot write " + path);
  domain.run([&] { server.mainClient->cmdExit4.press(); });

  simulator.terminate();
  simulator.waitForFinished(Limit_ms);
}

}  // namespace

/// Draws the main window of a running server, with the built-in simulator behind it and a display
/// that has the aircraft flown, into the PNG file of the argument: as large as a small screen, or
/// as the arguments behind it say. With --sticks and a folder, draws the windows of the sticks
/// there.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argc == 3 && std::string(argv[1]) == "--sticks") {
    if (!drawStickWindows(argv[2])) giveUp(std::string("cannot write into ") + argv[2]);
    return 0;
  }
  if (argc != 2 && argc != 4)
    giveUp("say where the picture goes: vorlent-screenshot docs/main-window.png [width height]");
  draw(argv[1], argc == 2 ? SmallScreen : QSize(std::atoi(argv[2]), std::atoi(argv[3])));
  return 0;
}
