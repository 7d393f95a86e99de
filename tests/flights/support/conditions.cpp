#include "conditions.h"
#include "base/units.h"

#include "simulator/StandardAtmosphere.h"
#include "simulator/angles.h"

namespace vorlent {
namespace {

struct Loading {
  const PlantData* plant;
  const char* name;
  double light_lb;
  double heavy_lb;
};

struct Where {
  const char* name;
  double altitude_ft;
  double speed_kt;
  double flapDetent;
};

double calibratedOfCruise_kt() {
  return calibratedOfMach(0.78, standardAir(35000 * MetresPerFoot).pressure_Pa) /
         MetresPerSecondPerKnot;
}

}  // namespace

std::vector<NamedCondition> conditions(Turbulence turbulence) {
  constexpr double flaps5 = 3;
  const Where places[] = {{"5000", 5000, 250, 0},
                          {"15000", 15000, 280, 0},
                          {"35000", 35000, calibratedOfCruise_kt(), 0},
                          {"flaps", 5000, 190, flaps5}};
  const Loading loadings[] = {{&plant737(), "737", 105000, 150000},
                              {&plantHeavyTwin(), "twin", 126000, 180000}};
  std::vector<NamedCondition> all;
  for (const Loading& loading : loadings)
    for (const Where& where : places)
      for (const bool heavy : {false, true}) {
        Condition c;
        c.plant = loading.plant;
        c.altitude_ft = where.altitude_ft;
        c.speed_kt = where.speed_kt;
        c.flapDetent = where.flapDetent;
        c.weight_lb = heavy ? loading.heavy_lb : loading.light_lb;
        c.wind.turbulence = turbulence;
        all.push_back(
            {std::string(loading.name) + "-" + where.name + (heavy ? "-heavy" : "-light"), c});
      }
  return all;
}

std::vector<NamedWind> routeWinds() {
  constexpr double runway_deg = 265;
  constexpr double nearGround_kt = 8;
  constexpr double aloft_kt = 60;
  constexpr double aloft_ft = 5000;
  struct Side {
    const char* name;
    double turned_deg;
  };
  constexpr Side sides[] = {{"head", 0}, {"right", 90}, {"tail", 180}, {"left", 270}};
  std::vector<NamedWind> winds;
  for (const auto& [name, turned_deg] : sides) {
    WindSettings wind;
    wind.from_deg = compass(runway_deg + turned_deg);
    wind.speed_kt = nearGround_kt;
    wind.layers = {{aloft_ft, wind.from_deg, aloft_kt}};
    winds.push_back({name, wind});
  }
  return winds;
}

std::vector<NamedCondition> landingConditions() {
  const Loading loadings[] = {{&plant737(), "737", 105000, 129000},
                              {&plantHeavyTwin(), "twin", 126000, 155000}};
  std::vector<NamedCondition> all;
  for (const Loading& loading : loadings)
    for (const bool heavy : {false, true}) {
      Condition c;
      c.plant = loading.plant;
      c.weight_lb = heavy ? loading.heavy_lb : loading.light_lb;
      all.push_back({std::string(loading.name) + (heavy ? "-heavy" : "-light"), c});
    }
  return all;
}

}  // namespace vorlent
