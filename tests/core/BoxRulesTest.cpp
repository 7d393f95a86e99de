#include <gtest/gtest.h>

#include "support/TestServer.h"

namespace vorlent {
namespace {

class BoxRules : public ::testing::Test {
 protected:
  void SetUp() override { host.start(); }

  static bool complains(TextBox& box, const std::string& typed) {
    box.Text(typed);
    return !box.Complaint().empty();
  }

  TestServer host;
  frmMainClient& form = host.form;
};

TEST_F(BoxRules, NoBoxComplainsAfterTheStart) {
  for (Control* control : form.controls())
    if (const auto* box = dynamic_cast<TextBox*>(control)) {
      EXPECT_EQ(box->Complaint(), "") << box->name();
    }
}

TEST_F(BoxRules, ABoxThatItsFilterEmptiedComplainsUntilItHoldsANumberAgain) {
  for (TextBox* box : {&form.txtPoll, &form.txtPort, &form.txtClients}) {
    EXPECT_TRUE(complains(*box, "6x")) << box->name();
    EXPECT_EQ(box->Text(), "") << box->name();
    EXPECT_FALSE(complains(*box, "2")) << box->name();
  }
}

TEST_F(BoxRules, AnIntervalOf16BitsIsRight) {
  EXPECT_FALSE(complains(form.txtPoll, "32767"));
  EXPECT_TRUE(complains(form.txtPoll, "32768"));
  EXPECT_EQ(form.txtPoll.Complaint(), "Needs a number from 0 to 32767");
  EXPECT_EQ(form.txtPoll.Text(), "32768");
}

TEST_F(BoxRules, APortBelow32767IsRight) {
  EXPECT_FALSE(complains(form.txtPort, "32766"));
  EXPECT_TRUE(complains(form.txtPort, "32767"));
  EXPECT_EQ(form.txtPort.Complaint(), "Needs a number from 1 to 32766");
}

TEST_F(BoxRules, APortTakenBackWhenItsBoxIsLeftIsStillComplainedAbout) {
  form.txtPort.Text("40000");
  form.txtPort.loseFocus();
  EXPECT_EQ(form.txtPort.Text(), "");
  EXPECT_EQ(form.txtPort.Complaint(), "Needs a number from 1 to 32766");
}

TEST_F(BoxRules, TooManyClientsAreComplainedAbout) {
  EXPECT_TRUE(complains(form.txtClients, "32768"));
  EXPECT_FALSE(complains(form.txtClients, "3"));
}

TEST_F(BoxRules, TheNumberOfSticksIsPutRightAndNeverComplains) {
  EXPECT_FALSE(complains(form.txtSticks, "many"));
  EXPECT_EQ(form.txtSticks.Text(), "1");
}

TEST_F(BoxRules, ATankHoldsANumberNotBelowZero) {
  for (TextBox* box :
       {&form.txtLeftMain, &form.txtRightMain, &form.txtLeftAux, &form.txtRightAux}) {
    EXPECT_FALSE(complains(*box, "1159.2"));
    EXPECT_TRUE(complains(*box, "1159,2"));
    EXPECT_FALSE(complains(*box, "0"));
    EXPECT_TRUE(complains(*box, "-1"));
    EXPECT_TRUE(complains(*box, "full"));
    EXPECT_TRUE(complains(*box, ""));
    EXPECT_EQ(box->Complaint(), "Needs a number of US gallons");
  }
}

TEST_F(BoxRules, ATankIsWrittenWithTheRegionsDecimalMark) {
  host.store.sDecimal = ",";
  EXPECT_FALSE(complains(form.txtLeftMain, "1159,2"));
  EXPECT_TRUE(complains(form.txtLeftMain, "1159.2"));
}

TEST_F(BoxRules, FlapPositionsAreUpToFifteenNumbersWithCommas) {
  EXPECT_FALSE(complains(form.txtFlaps, "1,2,5,10,15,25,30,41"));
  EXPECT_FALSE(complains(form.txtFlaps, "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15"));
  EXPECT_TRUE(complains(form.txtFlaps, "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16"));
  EXPECT_EQ(form.txtFlaps.Complaint(), "Needs up to 15 numbers with commas between");
  EXPECT_FALSE(complains(form.txtFlaps, "40"));
  EXPECT_TRUE(complains(form.txtFlaps, "1,2,"));
  EXPECT_TRUE(complains(form.txtFlaps, "1,two"));
  EXPECT_TRUE(complains(form.txtFlaps, "1,40000"));
  EXPECT_TRUE(complains(form.txtFlaps, ""));
}

}  // namespace
}  // namespace vorlent
