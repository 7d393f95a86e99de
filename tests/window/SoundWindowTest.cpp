#include "window/SoundWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "extras/frmSound.h"
#include "support/TestServer.h"
#include "window/QtOperator.h"
#include "window/spoken.h"
#include "window/widgets.h"

namespace vorlent {
namespace {

class SoundWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    screen.add(*host.server.soundForm, window);
    host.start();
  }
  /// What the operator does in the window.
  void open(const std::function<void()>& act) {
    host.op.onShow = [this](Form& form) {
      if (&form == host.server.soundForm.get()) screen.showForm(form, Modality::Modal);
    };
    QTimer::singleShot(0, &window, act);
    host.form.cmdSound.press();
  }
  QLineEdit& edit(const char* name) { return child<QLineEdit>(window, name); }

  TestServer host;
  QtOperator screen;
  SoundWindow window{*host.server.soundForm, [this](const std::function<void()>& work) {
                       host.server.failureDomain.run(work);
                     }};
};

TEST_F(SoundWindowTest, ShowsTheSettingsAndTheDevice) {
  open([this] {
    EXPECT_TRUE(window.isModal());
    EXPECT_EQ(edit("txtRum(0)").text(), "60");
    EXPECT_EQ(edit("txtRum(0)").toolTip(), "Base volume of tyre rumble");
    EXPECT_EQ(edit("txtRum(3)").text(), "5");
    EXPECT_TRUE(child<QCheckBox>(window, "chkStart").isChecked());
    EXPECT_EQ(child<QComboBox>(window, "cboSoundDevice").currentText(), "Speakers");
    EXPECT_EQ(child<QLabel>(window, "lblThreshold").text(), "Treshold (kts)");
    window.close();
  });
  EXPECT_FALSE(window.isVisible());
}

TEST_F(SoundWindowTest, OkKeepsWhatTheOperatorTyped) {
  open([this] {
    typeInto(edit("txtBump(1)"), "0.25");
    click(child<QCheckBox>(window, "chkTyres"));
    click(child<QPushButton>(window, "cmdOK"));
  });
  EXPECT_EQ(host.server.soundSettings->bump.Factor, 0.25F);
  EXPECT_EQ(host.server.soundSettings->tyres.Enabled, 0);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(SoundWindowTest, ABoxThatHoldsNoNumberIsMarked) {
  open([this] {
    typeInto(edit("txtStart(0)"), "loud");
    EXPECT_TRUE(edit("txtStart(0)").toolTip().contains("A whole number"));
    window.reject();
  });
  EXPECT_EQ(host.server.soundSettings->start.Volume, 70);
}

TEST_F(SoundWindowTest, EverythingHasANameAndEachCaptionAKeyOfItsOwn) {
  open([this] {
    expectNamesOfTheirOwn(window);
    expectDifferentAltKeys(window);
    EXPECT_EQ(altKeysOf(window).size(), 7U);
    EXPECT_EQ(spokenName(edit("txtBump(2)")), "Max volume, Touchdown Bump");
    window.reject();
  });
}

TEST_F(SoundWindowTest, TabsGoDownTheForm) {
  open([this] {
    QStringList names;
    QWidget* widget = &child<QComboBox>(window, "cboSoundDevice");
    do {
      if (widget->focusPolicy() & Qt::TabFocus) names << widget->objectName();
      widget = widget->nextInFocusChain();
    } while (widget->objectName() != "cboSoundDevice");
    EXPECT_EQ(names.join(" "),
              "cboSoundDevice chkRum txtRum(0) txtRum(1) txtRum(2) txtRum(3) chkBump txtBump(0) "
              "txtBump(1) txtBump(2) chkTyres txtTyres(0) chkStart txtStart(0) cmdOK cmdCancel");
    window.reject();
  });
}

}  // namespace
}  // namespace vorlent
