#pragma once

#include <map>
#include <string>
#include <utility>

namespace vorlent {

/// A hand-written record: an aircraft that climbs out over the Inn valley. Every group can be put
/// in another way before the record is asked for.
struct RecordText {
  explicit RecordText(int engineBlocks = 2) {
    for (int engine = 1; engine <= engineBlocks; ++engine)
      engines += std::to_string(engine) +
                 ".5 85.1 90.2 3 41.5 62 610 2410.75 5 -7 8 0.9 98 0.5 3000 97 11 1 2 88.5 140.25 "
                 "14 99 15 16 0 0 0 0 0 0 0 92.3 17 ";
    header = std::to_string(engineBlocks) + " 1 ";
  }

  std::string text() const {
    return "Data " + header + position + attitude + speeds + navigation + engines + radios +
           controls + selectors + wind + autopilot + flapsAndGear + single + time + management +
           panel + adf2 + electrical + failures + closing;
  }

  std::string header;
  std::string position = "47.26035 -11.34391 12345.6789012345 10234 3.2 0 ";
  std::string attitude = "2.5 345.5 123.4567 -4 ";
  std::string speeds = "305 310 250.0391 340 -1203.25 12 ";
  std::string navigation =
      "1 2 -127 73 64 254.4 4 1 12 180 0 1 0 12.3 210 45.6 199 271.5 10 11 55.5 56.5 70 9000.5 "
      "6.7 ";
  std::string engines;
  std::string radios =
      "118.5 110.3 114.7 350.5 21 73 74 121.65 9 10 11 12 122.8 121.5 109.5 113.1 380 INN  AB ";
  std::string controls =
      "-16383 100 -1.25 -7 0.5 2047 8191.5 2 2 1 255 16383 4 1 0 1 4.5 -20 1013.25 1012.5 16 3 "
      "-12.5 "
      "4.4 ";
  std::string selectors = "3 4 ";
  std::string wind = "250 25 1200 ";
  std::string autopilot = "2 1 49 10000 250 73 0.74 210 1500 90.1 0.4512 ";
  std::string flapsAndGear = "8191 0 16383 8000 0 ";
  std::string single = "20 ";
  std::string time =
      "16 05 09 14.05 1 -2.5 1.5 133000 33.3 1.5E+07 21 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 ";
  std::string management =
      "1 0.1 0.2 5 3 3.75 256.2 FMC_SPD VOR/LOC VNAV_SPD _ _ _ CWS_P CMD 200 RTT ";
  std::string panel = "101 102 103 104 105 106 107 108 109 110 111 112 113 114 ";
  std::string adf2 = "410.5 90  1 2 3 4 5 6 7.5 ";
  std::string electrical = "28.1 0.5 12 28 5 6 7 8 9 10 11 ";
  std::string failures = "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 ";
  std::string closing = "2047 end ";
};

}  // namespace vorlent
