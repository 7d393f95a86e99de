#include <string>

#include "base/printable.h"
#include "plan/Route.h"
#include "plan/routeFaults.h"
#include "plan/xml/xmlRoute.h"

// Little Navmap's .lnmpln: the cruise altitude in the header, and the waypoints with their places
// in attributes, departure and destination among them (its manual, "Flight Plan File Format").
// Procedures and alternates are passed over: their points are not in the file.

namespace vorlent {
namespace {

RoutePoint readWaypoint(pugi::xml_node waypoint, int number) {
  std::string name = childText(waypoint, "Ident");
  if (name.empty()) name = childText(waypoint, "Name");
  const std::string where =
      "waypoint " + std::to_string(number) + " (" + printable(name.substr(0, 40)) + ")";
  const pugi::xml_node place = waypoint.child("Pos");
  RoutePoint point = {
      name, placeOf(place.attribute("Lat").value(), place.attribute("Lon").value(), where)};
  if (const auto altitude = place.attribute("Alt"))
    point.altitude_ft = altitudeOf(altitude.value(), where);
  return point;
}

}  // namespace

Route readLittleNavmapRoute(std::string_view text) {
  const XmlRoute xml(text);
  const pugi::xml_node plan = xml.node({"LittleNavmap", "Flightplan"});
  Route route;
  const std::string cruise = childText(plan.child("Header"), "CruisingAlt");
  if (!cruise.empty()) route.cruise_ft = altitudeOf(cruise, "<CruisingAlt>");
  int number = 0;
  for (const pugi::xml_node waypoint : plan.child("Waypoints").children("Waypoint")) {
    ++number;
    addPoint(route, readWaypoint(waypoint, number), "waypoint " + std::to_string(number));
  }
  return checkedRoute(route);
}

}  // namespace vorlent
