#include "window/cockpitWindows.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <filesystem>

#include "cockpits/frmDir.h"
#include "cockpits/frmNew.h"
#include "cockpits/frmSave.h"
#include "cockpits/frmZip.h"
#include "support/TestServer.h"
#include "window/QtOperator.h"
#include "window/spoken.h"
#include "window/widgets.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

/// A started server whose forms for the cockpits have windows.
class CockpitWindows : public testing::Test {
 protected:
  void SetUp() override {
    server.folder.write("Templates/737-800/Flaps.cfg", "1,2\r\n");
    server.folder.write("Templates/737-800/sound.cfg", "60,1.2,95,40,0.05,90,80,70\r\n");
    screen.add(*server.server.newCockpit, *make);
    screen.add(*server.server.saveTemplate, *save);
    screen.add(*server.server.importOld, *import);
    screen.add(*server.server.zip, *zip);
    server.op.onShow = [this](Form& form) {
      if (&form != &server.form) screen.showForm(form, Modality::Modal);
    };
    server.start();
  }

  /// Presses, and does `act` in the window that comes up.
  void in(const Button& button, const std::function<void()>& act) {
    bool acted = false;
    QTimer::singleShot(0, qApp, [&] {
      act();
      acted = true;
    });
    server.server.failureDomain.run([&button] { button.press(); });
    EXPECT_TRUE(acted);
  }
  bool there(const std::string& path) const { return fs::exists(server.folder / path); }
  static QLabel* labelOf(const QWidget& window, const QWidget* widget) {
    for (auto* label : window.findChildren<QLabel*>())
      if (label->buddy() == widget) return label;
    return nullptr;
  }

  TestServer server;
  QtOperator screen;
  Guard guard = [this](const std::function<void()>& work) {
    server.server.failureDomain.run(work);
  };
  std::unique_ptr<FormDialog> make = newWindow(*server.server.newCockpit, guard);
  std::unique_ptr<FormDialog> save = saveWindow(*server.server.saveTemplate, guard);
  std::unique_ptr<FormDialog> import = importWindow(*server.server.importOld, guard);
  std::unique_ptr<FormDialog> zip = zipWindow(*server.server.zip, guard);
};

TEST_F(CockpitWindows, AnAircraftIsMadeWithTheKeyboardAlone) {
  in(server.form.Command1, [&] {
    EXPECT_TRUE(make->isVisible());
    EXPECT_TRUE(make->isModal());
    EXPECT_EQ(make->windowTitle(), "New aircraft from template");
    auto& name = child<QLineEdit>(*make, "Text1");
    name.setFocus();
    QTest::keyClicks(&name, "737-800");
    QTest::keyClick(&name, Qt::Key_Return);
  });
  EXPECT_FALSE(make->isVisible());
  EXPECT_TRUE(there("Cockpits/737-800/Flaps.cfg"));
  EXPECT_GE(server.form.cboDir.indexOf("737-800"), 0);
}

TEST_F(CockpitWindows, EscapeAndTheCloseBoxMakeNothing) {
  for (const bool escape : {true, false}) {
    in(server.form.Command1, [&] {
      QTest::keyClicks(&child<QLineEdit>(*make, "Text1"), "737-800");
      if (escape)
        QTest::keyClick(make.get(), Qt::Key_Escape);
      else
        make->close();
    });
    EXPECT_FALSE(server.server.newCockpit->Visible());
    EXPECT_FALSE(there("Cockpits/737-800"));
  }
}

TEST_F(CockpitWindows, NameThatExistsKeepsTheWindowOpen) {
  in(server.form.Command1, [&] {
    QTest::keyClicks(&child<QLineEdit>(*make, "Text1"), "A-first");
    click(child<QPushButton>(*make, "cmdOK"));
    EXPECT_EQ(server.op.takeBoxes().size(), 1U);
    EXPECT_TRUE(make->isVisible());
    click(child<QPushButton>(*make, "cmdCancel"));
  });
}

TEST_F(CockpitWindows, TemplateIsSavedUnderTheTypedName) {
  in(server.form.mnuFile(1), [&] {
    auto& name = child<QLineEdit>(*save, "Text1");
    EXPECT_EQ(name.text(), "Template1");
    typeInto(name, "mine");
    click(child<QPushButton>(*save, "cmdOK"));
  });
  EXPECT_TRUE(there("Templates/mine/Flaps.cfg"));
}

TEST_F(CockpitWindows, FoldersOfTheListAreEnteredByADoubleClickAndByEnter) {
  in(server.form.mnuFile(0), [&] {
    auto& list = child<QListWidget>(*import, "dirList1");
    auto& path = child<QLineEdit>(*import, "txtPath");
    const QString start = path.text();
    EXPECT_EQ(list.item(0)->text(), "..");
    EXPECT_EQ(list.item(1)->text(), "Cockpits");
    const QPoint second = list.visualItemRect(list.item(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(QDir(path.text()), QDir(start + "/Cockpits"));
    EXPECT_EQ(list.item(1)->text(), "737-700");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(QDir(path.text()), QDir(start));
    EXPECT_FALSE(child<QComboBox>(*import, "drvDrive1").isVisible());
    import->close();
  });
}

TEST_F(CockpitWindows, PathThatIsNoFolderHasARedFrame) {
  in(server.form.mnuFile(0), [&] {
    auto& path = child<QLineEdit>(*import, "txtPath");
    typeInto(path, "/no such folder");
    EXPECT_TRUE(path.toolTip().startsWith("There is no such folder\n"));
    import->close();
  });
}

TEST_F(CockpitWindows, ExportHidesTheNameAndImportShowsIt) {
  in(server.form.mnuFile(3), [&] {
    EXPECT_EQ(zip->windowTitle(), "Export cockpit 737-700");
    EXPECT_FALSE(child<QLineEdit>(*zip, "txtName").isVisible());
    zip->close();
  });
  in(server.form.mnuFile(4), [&] {
    EXPECT_EQ(zip->windowTitle(), "Import cockpit");
    EXPECT_TRUE(child<QLineEdit>(*zip, "txtName").isVisible());
    zip->close();
  });
}

TEST_F(CockpitWindows, EveryControlHasALabelOrACaptionAndTabLeadsThroughThemInOrder) {
  const std::vector<std::pair<FormDialog*, Form*>> windows = {
      {make.get(), server.server.newCockpit.get()},
      {save.get(), server.server.saveTemplate.get()},
      {import.get(), server.server.importOld.get()},
      {zip.get(), server.server.zip.get()}};
  for (const auto& [window, form] : windows) {
    window->show();
    QPoint before(0, -1);
    for (const Control* control : form->controls()) {
      auto* widget = window->findChild<QWidget*>(QString::fromStdString(control->name()));
      ASSERT_NE(widget, nullptr) << control->name();
      if (dynamic_cast<const Button*>(control)) continue;
      EXPECT_NE(labelOf(*window, widget), nullptr) << control->name();
      if (!widget->isVisible()) continue;
      EXPECT_GT(widget->y(), before.y()) << control->name();
      before = widget->pos();
    }
    window->hide();
  }
}

TEST_F(CockpitWindows, NoTwoThingsHaveOneNameOrOneKey) {
  for (QDialog* window : {make.get(), save.get(), import.get(), zip.get()}) {
    window->show();
    expectNamesOfTheirOwn(*window);
    expectDifferentAltKeys(*window);
    window->hide();
  }
}

TEST_F(CockpitWindows, FitASmallScreenWithLettersHalfAsLargeAgain) {
  const QFont usual = QApplication::font();
  QFont large = usual;
  large.setPointSizeF(usual.pointSizeF() * 1.5);
  QApplication::setFont(large);
  for (FormDialog* window : {make.get(), save.get(), import.get(), zip.get()}) {
    const QSize size = window->sizeHint();
    EXPECT_LE(size.width(), 1020) << window->objectName().toStdString();
    EXPECT_LE(size.height(), 560) << window->objectName().toStdString();
  }
  QApplication::setFont(usual);
}

}  // namespace
}  // namespace vorlent
