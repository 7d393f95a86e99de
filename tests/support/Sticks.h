#pragma once

#include <string>

#include "support/TestServer.h"

namespace vorlent {

/// A stick file with identity curves, no inversion and no smoothing. The axes have the codes 1 to 4
/// and no null zone, the lines are switches of the codes 11 to 14, the extra buttons have 105 to
/// 115.
inline const std::string PlainStickFile =
    "X-Axis, 1,0,0,0,1,0,33,66,1,1,1,0\r\n"
    "Y-Axis, 2,0,0,0,1,0,33,66,1,1,1,0\r\n"
    "Z-Axis, 3,0,0,0,1,0,33,66,1,1,1,0\r\n"
    "R-Axis, 4,0,0,0,1,0,33,66,1,1,1,0\r\n"
    "Button-1,11,1,1\r\n"
    "Button-2,12,1,1\r\n"
    "Button-3,13,1,1\r\n"
    "Button-4,14,1,1\r\n"
    "Button-5,105\r\n"
    "Button-6,106\r\n"
    "Button-7,107\r\n"
    "Button-8,108\r\n"
    "Button-9,109\r\n"
    "Button-10,110\r\n"
    "Button-11,111\r\n"
    "Button-12,112\r\n"
    "Button-13,113\r\n"
    "Button-14,114\r\n"
    "Button-15,115\r\n";

inline void writeCatalogues(const TempFolder& folder) {
  folder.write("anasort.txt", "Heading,8\r\n\"Flaps, lever\",22\r\n#Altitude,6\r\n");
  folder.write("togsort.txt", "Gear,7\r\n#Pitot heat,10\r\n");
  folder.write("butsort.txt", "#COM 1 up,50\r\nLNAV,169\r\nVNAV,168\r\n");
  folder.write("encoder.txt", "Course,3\r\n#Speed,5\r\n");
}

/// Where the file of a stick of the chosen cockpit stands below the program folder.
inline std::string stickFileOf(int stick) {
  return "Cockpits/737-700/stick/stick" + std::to_string(stick) + ".cfg";
}

/// Plugs in boards and puts a plain file for each and the catalogues into the program folder.
inline void addSticks(TestServer& t, int count) {
  writeCatalogues(t.folder);
  for (int stick = 0; stick < count; ++stick) {
    t.folder.write(stickFileOf(stick), PlainStickFile);
    t.folder.write("Cockpits/A-first/stick/stick" + std::to_string(stick) + ".cfg", PlainStickFile);
    t.controllers.plugIn();
  }
}

}  // namespace vorlent
