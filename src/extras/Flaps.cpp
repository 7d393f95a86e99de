#include "extras/Flaps.h"

#include "base/TextLines.h"
#include "base/backups.h"
#include "base/controls.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/simulatorUnits.h"
#include "base/text.h"
#include "platform/fileChecks.h"
#include "simlink/clsFSUIPC.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

const std::string FileName = "Flaps.cfg";

}  // namespace

void Flaps::InitFlaps() {
  const std::string path = store_.CockpitPath + FileName;
  CheckFileExists(operator_, path, BoxIcon::Exclamation);
  const std::string content = readFile(path);
  const std::string line = TextLines(content).next();
  line_.Text(line);
  readFrom_ = store_.CockpitPath;

  const modPublic& v = store_;
  const bool fileDecides = link_.XPlane() == 1 || v.FsVersionCode < modPublic::MinFsVersion;
  if (fileDecides)
    takeDetentsFromText(line);
  else
    store_.FlapTable(0).Degrees = v.FlapPositions;
  line_.Enabled(fileDecides);
  line_.Visible(fileDecides);
  spreadDetents();
}

/// Record 1 is the up position with 0 degrees, which the line does not name.
void Flaps::takeDetentsFromText(const std::string& line) {
  int i = 2;
  for (const std::string& field : commaFields(line)) store_.FlapTable(i++).Degrees = int16Of(field);
  store_.FlapTable(0).Degrees = static_cast<std::int16_t>(i - 1);
}

/// The last detent is made exact whatever the rounding of the others did.
void Flaps::spreadDetents() {
  const std::int16_t n = store_.FlapTable(0).Degrees;
  const std::int16_t step = toInt16(std::trunc(quotient(FullTravel, n - 1)));
  store_.FlapTable(0).Limit = 0;
  store_.FlapTable(0).Position = 0;
  for (int i = 1; i <= n; ++i) {
    const std::int16_t before = store_.FlapTable(i - 1).Position;
    store_.FlapTable(i).Position = toInt16(before + step);
    store_.FlapTable(i).Limit = toInt16(before + step / 2.0);
  }
  store_.FlapTable(n).Position = FullTravel;
}

void Flaps::writeFile(const std::string& cockpitPath) const {
  if (readFrom_.empty() || cockpitPath != readFrom_) return;
  overwriteStartKeepingBackups(cockpitPath + FileName, trimmed(line_.Text()) + "\r\n");
}

}  // namespace vorlent
