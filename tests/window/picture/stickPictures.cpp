#include "window/picture/stickPictures.h"

#include <QApplication>
#include <QPalette>
#include <QTest>
#include <filesystem>
#include <memory>

#include "core/frmMainClient.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "sticks/frmXY.h"
#include "support/TestServer.h"
#include "support/places.h"
#include "window/picture/framed.h"
#include "window/stickWindows.h"

namespace {

using namespace vorlent;
namespace fs = std::filesystem;

constexpr int Boards = 6;
constexpr int Poll_ms = 50;

/// A server with the shipped catalogues and stick files, whose windows are drawn one by one.
class Desk {
 public:
  explicit Desk(std::string folder) : folder_(std::move(folder)) {
    const fs::path cockpit = "Cockpits/737-700";
    for (const char* catalogue : {"anasort.txt", "togsort.txt", "butsort.txt", "encoder.txt"})
      fs::copy_file(dataFolder() / fs::path(catalogue), t_.folder / catalogue,
                    fs::copy_options::overwrite_existing);
    fs::copy(dataFolder() / cockpit, t_.folder / cockpit.string(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    for (int board = 0; board < Boards; ++board) t_.controllers.plugIn();
    t_.start();
    t_.form.txtSticks.Text(std::to_string(Boards));
    t_.form.chkStick.Value(1);
  }

  frmCStick& stick(std::size_t number) { return *t_.server.sticks.CStick.at(number); }
  frmCMore& more(std::size_t number) { return *t_.server.sticks.CMore.at(number); }
  frmXY& curve() { return *t_.server.sticks.XY; }
  ControllerState& board(std::size_t number) { return t_.controllers.all.at(number).state; }
  void letPoll(int times) { t_.loop.advance(Poll_ms * times); }

  void draw(Form& form, const char* name) {
    const auto window = makeStickWindow(form, [](const auto& work) { work(); });
    window->show();
    letPoll(10);
    QCoreApplication::processEvents();
    const fs::path path = fs::path(folder_) / (std::string(name) + ".png");
    written_ = framed(*window).save(QString::fromStdString(path.string())) && written_;
  }
  bool written() const { return written_; }

 private:
  TestServer t_;
  std::string folder_;
  bool written_ = true;
};

void drawYoke(Desk& desk) {
  frmCStick& yoke = desk.stick(0);
  yoke.Visible(true);
  desk.letPoll(2);
  desk.board(0) = {.x = 41000, .y = 26000};
  desk.draw(yoke, "stick-axes");
  yoke.takeCurve(0, {0, 40, 70, 0.5F, 1, 5.0F / 3});
  desk.curve().InitForStick(0, 20500);
  desk.curve().Visible(true);
  desk.draw(desk.curve(), "curve");
  desk.curve().close();
  yoke.close();
}

void drawSwitches(Desk& desk) {
  constexpr std::size_t Quadrant = 1;
  frmCStick& quadrant = desk.stick(Quadrant);
  quadrant.Visible(true);
  quadrant.SSTab1.ListIndex(frmCStick::ButtonPage);
  desk.letPoll(2);
  desk.board(Quadrant).buttons[1] = ControllerState::Pressed;
  desk.draw(quadrant, "stick-switches");
  quadrant.close();
}

void drawPanel(Desk& desk) {
  constexpr std::size_t Panel = 3;
  frmCStick& panel = desk.stick(Panel);
  panel.Visible(true);
  panel.SSTab1.ListIndex(frmCStick::ButtonPage);
  panel.cmdMore.press();
  desk.more(Panel).Visible(true);
  desk.letPoll(2);
  for (const std::size_t line : {0U, 2U})
    desk.board(Panel).buttons[line] = ControllerState::Pressed;
  desk.draw(desk.more(Panel), "more-buttons");
  desk.more(Panel).close();
  panel.close();
}

void drawEncoders(Desk& desk) {
  constexpr std::size_t Radios = 5;
  frmCStick& radios = desk.stick(Radios);
  radios.Visible(true);
  desk.draw(radios, "stick-encoders");
  radios.SSTab1.ListIndex(frmCStick::ButtonPage);
  radios.chkKeyBtn.Value(1);
  radios.txtKeyBtn.getFocus();
  radios.txtKeyBtn.keyDown('L', Held::Ctrl);
  desk.draw(radios, "stick-key");
  radios.close();
}

}  // namespace

bool drawStickWindows(const std::string& folder) {
  fs::create_directories(folder);
  Desk desk(folder);
  drawYoke(desk);
  drawSwitches(desk);
  drawPanel(desk);
  drawEncoders(desk);
  return desk.written();
}
