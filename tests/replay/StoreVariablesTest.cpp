#include "replay/storeVariables.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

#include "base/files.h"
#include "store/modPublic.h"
#include "support/places.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

std::string valueOf(const std::string& name, const modPublic& store) {
  return storeVariableNamed(name).value(store);
}

std::string complaintAbout(const std::string& name) {
  try {
    storeVariableNamed(name);
  } catch (const RuntimeError& error) {
    return error.description();
  }
  return "";
}

TEST(StoreVariables, AreReadByTheirNamesInAnyCaseOfLetters) {
  modPublic store;
  store.Ias = 251.5F;
  store.GrossWeight = 123456;
  store.AircraftAltitude = 5000.125;
  store.CycleRunning = true;
  store.Vor1Id = "VAR";
  EXPECT_EQ(valueOf("Ias", store), "251.5");
  EXPECT_EQ(valueOf("grossweight", store), "123456");
  EXPECT_EQ(valueOf("AircraftAltitude", store), "5000.125");
  EXPECT_EQ(valueOf("CycleRunning", store), "1");
  EXPECT_EQ(valueOf("Vor1Id", store), "VAR");
}

TEST(StoreVariables, AnArrayGivesItsElementsAndTheirFields) {
  modPublic store;
  store.Engines(2).N1 = 87.5F;
  store.PanelWord(14) = 7;
  store.RadioValues(0) = 333;
  EXPECT_EQ(valueOf("Engines(2).N1", store), "87.5");
  EXPECT_EQ(valueOf("PanelWord(14)", store), "7");
  EXPECT_EQ(valueOf("RadioValues(0)", store), "333");
  EXPECT_EQ(raisedBy([] { storeVariableNamed("PanelWord(15)"); }), RuntimeError::InvalidCall);
}

TEST(StoreVariables, TellWhetherTheyAreTexts) {
  for (const std::string name : {"Vor1Id", "DataRecord", "LocalTimeText"})
    EXPECT_TRUE(storeVariableNamed(name).isText()) << name;
  for (const std::string name : {"Ias", "CycleRunning", "Engines(2).N1", "RadioValues(0)"})
    EXPECT_FALSE(storeVariableNamed(name).isText()) << name;
}

TEST(StoreVariables, AnUnknownOneIsToldWithThoseNearIt) {
  EXPECT_EQ(complaintAbout("Iaz"), "no variable \"Iaz\"; near it is Ias");
  EXPECT_EQ(complaintAbout("brake"),
            "no variable \"brake\"; near it are LeftBrake, RightBrake, ParkingBrake");
  EXPECT_EQ(complaintAbout("zzzzzzzz"), "no variable \"zzzzzzzz\"");
}

/// The members between the braces of a struct in modPublic.h, by their declarations.
std::set<std::string> membersOf(const std::string& header, const std::string& structName) {
  const auto begin = header.find("struct " + structName + " {");
  std::string body = header.substr(begin, header.find("\n};", begin) - begin);
  body = std::regex_replace(body, std::regex("//[^\n]*"), "");
  body = std::regex_replace(body, std::regex("static [^;]*;"), "");
  std::set<std::string> members;
  const std::regex declaration(R"((\w+)(\s*=[^;]*|\{\})?\s*;)");
  for (std::sregex_iterator found(body.begin(), body.end(), declaration), end; found != end;
       ++found)
    members.insert((*found)[1]);
  return members;
}

TEST(StoreVariables, NoMemberOfTheStoreIsMissing) {
  const std::string header = readFile(testsFolder() + "/../src/store/modPublic.h");
  std::set<std::string> expected = membersOf(header, "modPublic");
  for (const std::string field : {"Engine", "NavRadio", "FuelTank", "FlapDetent"})
    for (const std::string& member : membersOf(header, field)) expected.insert("." + member);
  std::set<std::string> offered;
  for (const StoreVariable& variable : storeVariables()) {
    const std::string& name = variable.name();
    offered.insert(name.substr(0, name.find('(')));
    if (const auto dot = name.find('.'); dot != std::string::npos) offered.insert(name.substr(dot));
  }
  EXPECT_EQ(offered, expected);
}

}  // namespace
}  // namespace vorlent
