#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>

#include "core/Transcript.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

class OffsetsIni : public ::testing::Test {
 protected:
  void startWith(const std::string& offsets) {
    host.folder.write("Offsets.ini", offsets);
    host.start();
  }
  std::vector<int> lamps() const {
    const clsAutoP& a = *host.server.accessors.autoP;
    return {a.Offset_LVLCH,    a.Offset_LNAV,     a.Offset_VNAV,    a.Offset_CMDL,
            a.Offset_CMDR,     a.Offset_CWSL,     a.Offset_CWSR,    a.Offset_CO,
            a.Offset_AT,       a.Offset_TOGA,     a.Offset_AP,      a.Offset_INTV,
            a.Offset_HOLDIAS,  a.Offset_HOLDMACH, a.Offset_HOLDALT, a.Offset_HOLDHDG,
            a.Offset_HOLDNAV1, a.Offset_HOLDLOC,  a.Offset_HOLDGS,  a.Offset_HOLDVS,
            a.Offset_HOLDN1,   a.Offset_EXEC};
  }

  TestServer host;
};

TEST_F(OffsetsIni, MissingLeavesTheDefaults) {
  host.start();
  EXPECT_EQ(host.server.fsuipc->Offset_APHeading(), 0x07CC);
  EXPECT_EQ(std::bit_cast<std::uint32_t>(host.server.fsuipc->Factor_APHeading()), 0x43360B5EU);
  EXPECT_THAT(lamps(), ::testing::Each(0));
  EXPECT_EQ(lamps().size(), 22U);
}

TEST_F(OffsetsIni, GivesEachLampItsOffset) {
  startWith(
      "[Mcpbuttons]\r\nLVLCHG=66C0\r\nLNAV=66C1\r\nVNAV=66C2\r\nCMDL=66C3\r\nCMDR=66C4\r\n"
      "CWSL=66C5\r\nCWSR=66C6\r\nCO=66C7\r\nAT=66C8\r\nTOGA=66C9\r\nAP=66CA\r\nINTV=66CB\r\n"
      "HOLDIAS=66CC\r\nHOLDMACH=66CD\r\nHOLDALT=66CE\r\nHOLDHDG=66CF\r\nHOLDNAV=66D0\r\n"
      "HOLDLOC=66D1\r\nHOLDGS=66D2\r\nHOLDVS=66D3\r\nHOLDN1=66D4\r\n[CDU]\r\nEXEC=66D5\r\n");
  EXPECT_THAT(lamps(), ElementsAre(0x66C0, 0x66C1, 0x66C2, 0x66C3, 0x66C4, 0x66C5, 0x66C6, 0x66C7,
                                   0x66C8, 0x66C9, 0x66CA, 0x66CB, 0x66CC, 0x66CD, 0x66CE, 0x66CF,
                                   0x66D0, 0x66D1, 0x66D2, 0x66D3, 0x66D4, 0x66D5));
}

TEST_F(OffsetsIni, TheNamesOfTheMembersAreNoKeys) {
  startWith("[Mcpbuttons]\r\nLVLCH=66C0\r\nHOLDNAV1=66D0\r\n");
  EXPECT_THAT(lamps(), ::testing::Each(0));
}

TEST_F(OffsetsIni, MovesTheHeadingBug) {
  startWith("[APHeading]\r\nOffset=66D6\r\nFactor=1.5\r\n");
  EXPECT_EQ(host.server.fsuipc->Offset_APHeading(), 0x66D6);
  EXPECT_EQ(host.server.fsuipc->Factor_APHeading(), 1.5F);
}

TEST_F(OffsetsIni, ThePollReadsTheHeadingBugWhereItWasMoved) {
  host.bus.put(0x66D6, std::uint16_t{270});
  startWith("[APHeading]\r\nOffset=66D6\r\nFactor=1.5\r\n");
  EXPECT_EQ(host.store.ApHeadingSim, 180.F);
}

TEST_F(OffsetsIni, DigitsOnlyAreHexadecimalToo) {
  startWith("[Mcpbuttons]\r\nAP=6600\r\nAT=66e0\r\n");
  EXPECT_EQ(host.server.accessors.autoP->Offset_AP, 0x6600);
  EXPECT_EQ(host.server.accessors.autoP->Offset_AT, 0x66E0);
}

TEST_F(OffsetsIni, AnEmptyKeyLeavesTheDefault) {
  startWith("[APHeading]\r\nOffset=\r\nFactor=\r\n[Mcpbuttons]\r\nAP=\r\nAT=66C8\r\n");
  EXPECT_EQ(host.server.accessors.autoP->Offset_AP, 0);
  EXPECT_EQ(host.server.accessors.autoP->Offset_AT, 0x66C8);
  EXPECT_EQ(host.server.fsuipc->Offset_APHeading(), 0x07CC);
  EXPECT_EQ(std::bit_cast<std::uint32_t>(host.server.fsuipc->Factor_APHeading()), 0x43360B5EU);
}

TEST_F(OffsetsIni, TheFactorKeepsItsPointUnderADecimalComma) {
  host.regional.mark = ",";
  startWith("[APHeading]\r\nFactor=182.0444\r\n");
  EXPECT_EQ(host.server.fsuipc->Factor_APHeading(), 182.0444F);
}

TEST_F(OffsetsIni, TheFactorMayBeTypedWithTheDecimalCommaOfTheMachine) {
  host.regional.mark = ",";
  startWith("[APHeading]\r\nFactor=182,0444\r\n");
  EXPECT_EQ(host.server.fsuipc->Factor_APHeading(), 182.0444F);
}

TEST_F(OffsetsIni, AWordOf32BitsIsTaken) {
  startWith("[Mcpbuttons]\r\nAP=7FFFFFFF\r\nAT=FFFFFFFF\r\n");
  EXPECT_EQ(host.server.accessors.autoP->Offset_AP, 2147483647);
  EXPECT_EQ(host.server.accessors.autoP->Offset_AT, -1);
}

TEST_F(OffsetsIni, AnOffsetThatIsNoNumberEndsTheProcess) {
  startWith("[Mcpbuttons]\r\nAP=0x66CA\r\n");
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox("Run-time error '13':\n\nType mismatch\nOffsets.ini, section "
                                      "Mcpbuttons, key AP: \"0x66CA\"")));
  EXPECT_EQ(host.exitStatus(), 1);
}

TEST_F(OffsetsIni, AFactorThatIsNoNumberEndsTheProcess) {
  startWith("[APHeading]\r\nFactor=many\r\n");
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox("Run-time error '13':\n\nType mismatch\nOffsets.ini, section "
                                      "APHeading, key Factor: \"many\"")));
  EXPECT_EQ(host.exitStatus(), 1);
}

TEST_F(OffsetsIni, IsNeverWritten) {
  const std::string content = "; mine\n[CDU]\nEXEC=66D5\n";
  startWith(content);
  host.server.failureDomain.run([this] { host.form.cmdExit4.press(); });
  EXPECT_EQ(host.folder.read("Offsets.ini"), content);
}

}  // namespace
}  // namespace vorlent
