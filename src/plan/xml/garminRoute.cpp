#include <map>
#include <optional>
#include <string>

#include "base/printable.h"
#include "plan/Route.h"
#include "plan/routeFaults.h"
#include "plan/xml/xmlRoute.h"

// Garmin's .fpl: a table of waypoints, in which name, kind and country together are unlike each
// other, and a route whose points name rows of the table (schema FlightPlan/v1).

namespace vorlent {
namespace {

/// Rows of the table by name, kind and country, and by name alone: some programs leave the country
/// out in one of the two places.
using Table = std::map<std::string, RoutePoint>;

std::string key(const std::string& name, const std::string& kind, const std::string& country) {
  return name + "\n" + kind + "\n" + country;
}

std::string numbered(const char* what, int number, const std::string& name) {
  return what + std::to_string(number) + " (" + printable(name.substr(0, 40)) + ")";
}

Table readTable(pugi::xml_node waypoints) {
  Table table;
  int number = 0;
  for (const pugi::xml_node waypoint : waypoints.children("waypoint")) {
    const std::string name = childText(waypoint, "identifier");
    const std::string where = numbered("waypoint ", ++number, name);
    const RoutePoint point = {
        name, placeOf(childText(waypoint, "lat"), childText(waypoint, "lon"), where)};
    table.emplace(key(name, childText(waypoint, "type"), childText(waypoint, "country-code")),
                  point);
    table.emplace(name, point);
  }
  return table;
}

}  // namespace

Route readGarminRoute(std::string_view text) {
  const XmlRoute xml(text);
  const Table table = readTable(xml.node({"flight-plan", "waypoint-table"}));
  Route route;
  int number = 0;
  for (const pugi::xml_node point : xml.node({"flight-plan", "route"}).children("route-point")) {
    const std::string name = childText(point, "waypoint-identifier");
    const std::string where = numbered("route point ", ++number, name);
    auto row = table.find(
        key(name, childText(point, "waypoint-type"), childText(point, "waypoint-country-code")));
    if (row == table.end()) row = table.find(name);
    if (row == table.end()) refuseRoute(where, "the waypoint table does not have it");
    addPoint(route, row->second, where);
  }
  return checkedRoute(route);
}

}  // namespace vorlent
