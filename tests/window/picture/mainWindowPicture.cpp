#include <QApplication>
#include <QPainter>
#include <QProcess>
#include <QTest>
#include <QUdpSocket>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "app/LinuxServer.h"
#include "base/clsIniRw.h"
#include "core/frmMainClient.h"
#include "core/modMain.h"
#include "support/TempFolder.h"
#include "support/places.h"
#include "window/MainWindow.h"
#include "window/QtOperator.h"

namespace {

using namespace vorlent;
namespace fs = std::filesystem;

constexpr int Limit_ms = 20000;

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
  fs::create_directories(folder / "network/127.0.0.1/Vorlent");
  const std::string ini = folder / "Vorlent.ini";
  clsIniRw().WriteKey("Platform", "ShareRoot", folder / "network", ini);
  clsIniRw().WriteKey("Platform", "LocalIp", "127.0.0.1", ini);
}

void greetAsDisplay(const Server& server) {
  QUdpSocket display;
  const auto port = static_cast<quint16>(server.store.BasePort);
  display.writeDatagram("Connection on 1 1 100 captain", QHostAddress::LocalHost, port);
  if (!QTest::qWaitFor([&] { return server.main->AnyClientUp(); }, Limit_ms))
    giveUp("the display's greeting was not heard");
}

/// The window with its caption over it, as a desktop would frame it.
QPixmap framed(QWidget& window) {
  constexpr int Title_px = 28;
  QPixmap picture(window.width() + 2, window.height() + Title_px + 1);
  picture.fill(QColor(0x3b, 0x48, 0x56));
  QPainter painter(&picture);
  painter.setPen(Qt::white);
  painter.drawText(QRect(0, 0, picture.width(), Title_px), Qt::AlignCenter, window.windowTitle());
  painter.drawPixmap(1, Title_px, window.grab());
  return picture;
}

void draw(const std::string& path) {
  const TempFolder folder;
  prepare(folder);
  QProcess simulator;
  simulator.start(QCoreApplication::applicationDirPath() + "/vorlent-sim", QStringList());
  if (!simulator.waitForReadyRead(Limit_ms)) giveUp("vorlent-sim does not start");

  PictureOperator screen;
  LinuxServer host(folder.path(), screen);
  Server& server = host.server();
  FailureDomain& domain = server.failureDomain;
  MainWindow window(*server.mainClient, [&](const auto& work) { domain.run(work); });
  screen.add(*server.mainClient, window);
  domain.run([&] { server.main->Main(); });
  greetAsDisplay(server);
  if (!framed(window).save(QString::fromStdString(path))) giveUp("cannot write " + path);
  domain.run([&] { server.mainClient->cmdExit4.press(); });

  simulator.terminate();
  simulator.waitForFinished(Limit_ms);
}

}  // namespace

/// Draws the main window of a running server, with the built-in simulator behind it and a display
/// that has greeted, into the PNG file of the argument.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argc != 2) giveUp("say where the picture goes: vorlent-screenshot docs/main-window.png");
  draw(argv[1]);
  return 0;
}
