#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "base/numbers.h"
#include "base/units.h"
#include "core/Server.h"
#include "input/analogFamilies.h"
#include "input/n1Bugs.h"
#include "simlink/clsRadio.h"
#include "simlink/clsSrv.h"

namespace vorlent {
namespace {

clsXAutoP& autopilot(CommandContext& context) { return *context.server.xAutoP; }

std::int16_t wholeCourse_deg(CommandContext& context) {
  return toInt16(autopilot(context).apCourse());
}

void setCourse(CommandContext& context, float degrees) {
  autopilot(context).apCourse(degrees);
  context.server.radio->Vor_1_obs(wholeCourse_deg(context));
}

void setCourseOfSecondNav(CommandContext& context, float) {
  context.server.radio->Vor_2_obs(wholeCourse_deg(context));
}

/// Knots before the changeover, Mach after it.
void setSpeed(CommandContext& context, float speed) {
  if (context.server.xAutoT->apChangeover() != 0)
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
     [](auto& c, float degrees) { c.server.srv->AileronTrim(-degrees * CoarseRadiansPerDegree); }},
    {88, "Rudder trim",
     [](auto& c, float degrees) { c.server.srv->RudderTrim(-degrees * CoarseRadiansPerDegree); }},
    {89, "Minimums", [](auto& c, float feet) { c.server.afds->Minimums = toInt16(feet); }},
    {94, "MCP course to OBS2", setCourseOfSecondNav},
    {95, "VOR turn range", [](auto& c, float nm) { autopilot(c).apTurnRangeVor = nm; }},
    {96, "N1 bug", setN1Bug},
};

}  // namespace

std::span<const CommandRow> autoflightAnalogRows() { return Rows; }

}  // namespace vorlent
