#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "base/numbers.h"
#include "base/units.h"
#include "commands/analogFamilies.h"
#include "commands/leverConversions.h"
#include "commands/n1Bugs.h"
#include "simlink/Accessors.h"

namespace vorlent {
namespace {

clsXAutoP& autopilot(CommandContext& context) { return *context.autoflight.xAutoP; }

std::int16_t wholeCourse_deg(CommandContext& context) {
  return toInt16(autopilot(context).apCourse());
}

void setCourse(CommandContext& context, float degrees) {
  autopilot(context).apCourse(degrees);
  context.accessors.radio->Vor_1_obs(wholeCourse_deg(context));
}

void setCourseOfSecondNav(CommandContext& context, float) {
  context.accessors.radio->Vor_2_obs(wholeCourse_deg(context));
}

/// Knots before the changeover, Mach after it.
void setSpeed(CommandContext& context, float speed) {
  if (context.autoflight.xAutoT->apChangeover() != 0)
    autopilot(context).ApMachNumber(speed);
  else
    autopilot(context).apMcpAirSpeed(speed);
}

void setN1Bug(CommandContext& context, float percent) {
  withSelectedN1Bugs(context, [percent](float& bug_pct) { bug_pct = percent; });
}

constexpr CommandRow Rows[] = {
    {78, "MCP turn rate", [](auto& c, float rate) { autopilot(c).apTurnRate(rate); }},
    {79, "MCP bank limit", [](auto& c, float degrees) { autopilot(c).apBankLimit(degrees); }},
    {80, "MCP course", setCourse},
    {81, "MCP altitude", [](auto& c, float feet) { autopilot(c).apMcpAltitude(feet); }},
    {82, "MCP heading", [](auto& c, float degrees) { autopilot(c).apHeading(degrees); }},
    {83, "MCP Mach number", [](auto& c, float mach) { autopilot(c).ApMachNumber(mach); }},
    {84, "MCP speed (Mach after changeover)", setSpeed},
    {85, "MCP vertical speed", [](auto& c, float fpm) { autopilot(c).apVertSpeed(fpm); }},
    {87, "Aileron trim",
     [](auto& c, float degrees) {
       c.accessors.srv->AileronTrim(-degrees * CoarseRadiansPerDegree);
     },
     levers::aroundMiddle<20>},
    {88, "Rudder trim",
     [](auto& c, float degrees) { c.accessors.srv->RudderTrim(-degrees * CoarseRadiansPerDegree); },
     levers::aroundMiddle<20>},
    {89, "Minimums", [](auto& c, float feet) { c.autoflight.afds->fmc.Minimums = toInt16(feet); }},
    {94, "MCP course to OBS2", setCourseOfSecondNav},
    {95, "VOR turn range", [](auto& c, float nm) { autopilot(c).tuning.apTurnRangeVor = nm; }},
    {96, "N1 bug", setN1Bug},
};

}  // namespace

std::span<const CommandRow> autoflightAnalogRows() { return Rows; }

}  // namespace vorlent
