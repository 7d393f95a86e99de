#pragma once

#include <string>

#include "flightplan/FlightPlanRecord.h"

namespace vorlent {

/// The row of a file, in which every field has a value of its own.
inline std::string rowText(const std::string& name) {
  return "\"" + name +
         "\",\"text 2\",\"text 3\",4.5,5.5,6.5,7.5,8.5,9.5,10.5,11.5,12.5,13.5,14.5,15.5,16.5,17.5,"
         "18000,19.5,20,\"PRF\",22000,23.5,24.5,25.5,26.5\r\n";
}

inline FlightPlanRecord rowOf(const std::string& storedName) {
  FlightPlanRecord row;
  row.Name = storedName;
  row.Text2 = "text 2";
  row.Text3 = "text 3";
  row.Value4 = 4.5F;
  row.Value5 = 5.5F;
  row.Course = 6.5F;
  row.Value7 = 7.5F;
  row.Value8 = 8.5F;
  row.Value9 = 9.5F;
  row.Distance = 10.5F;
  row.Value11 = 11.5F;
  row.Value12 = 12.5F;
  row.Value13 = 13.5F;
  row.Value14 = 14.5F;
  row.Value15 = 15.5F;
  row.Value16 = 16.5F;
  row.Value17 = 17.5F;
  row.Altitude = 18000;
  row.Value19 = 19.5F;
  row.Value20 = 20;
  row.Kind = "PRF";
  row.Value22 = 22000;
  row.Latitude = 23.5F;
  row.Longitude = 24.5F;
  row.VertexLat = 25.5F;
  row.VertexLon = 26.5F;
  return row;
}

}  // namespace vorlent
