#include "extras/Flaps.h"

#include "base/TextLines.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/simulatorUnits.h"
#include "base/text.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "core/modMain.h"
#include "simlink/clsFSUIPC.h"

namespace vorlent {
namespace {}  // namespace

std::string Flaps::path() const { return server_.store.CockpitPath + "Flaps.cfg"; }

void Flaps::InitFlaps() {
  server_.main->CheckFileExists(path(), BoxIcon::Exclamation);
  const std::string content = readFile(path());
  const std::string line = TextLines(content).next();
  TextBox& txtFlaps = server_.mainClient->txtFlaps;
  txtFlaps.Text(line);
  lineRead_ = true;

  const modPublic& v = server_.store;
  const bool fileDecides =
      server_.fsuipc->XPlane() == 1 || v.FsVersionCode < modPublic::MinFsVersion;
  if (fileDecides)
    takeDetentsFromText(line);
  else
    FlapTable(0).Degrees = v.FlapPositions;
  txtFlaps.Enabled(fileDecides);
  txtFlaps.Visible(fileDecides);
  spreadDetents();
}

/// Record 1 is the up position with 0 degrees, which the line does not name.
void Flaps::takeDetentsFromText(const std::string& line) {
  int i = 2;
  for (const std::string& field : commaFields(line)) FlapTable(i++).Degrees = int16Of(field);
  FlapTable(0).Degrees = static_cast<std::int16_t>(i - 1);
}

/// The last detent is made exact whatever the rounding of the others did.
void Flaps::spreadDetents() {
  const std::int16_t n = FlapTable(0).Degrees;
  const std::int16_t step = toInt16(std::trunc(quotient(FullTravel, n - 1)));
  FlapTable(0).Limit = 0;
  FlapTable(0).Position = 0;
  for (int i = 1; i <= n; ++i) {
    const std::int16_t before = FlapTable(i - 1).Position;
    FlapTable(i).Position = toInt16(before + step);
    FlapTable(i).Limit = toInt16(before + step / 2.0);
  }
  FlapTable(n).Position = FullTravel;
}

void Flaps::writeFile() const {
  if (lineRead_) overwriteStart(path(), trimmed(server_.mainClient->txtFlaps.Text()) + "\r\n");
}

}  // namespace vorlent
