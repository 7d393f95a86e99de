#include "extras/SoundSettings.h"

#include <initializer_list>
#include <vector>

#include "base/TextLines.h"
#include "base/backups.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "platform/fileChecks.h"

namespace vorlent {
namespace {

std::vector<double> numbersOf(const std::string& line, std::size_t count) {
  const auto fields = commaFields(line);
  if (fields.size() < count) throw RuntimeError(RuntimeError::InputPastEnd);
  std::vector<double> numbers;
  for (std::size_t i = 0; i < count; ++i) numbers.push_back(numberOf(fields[i]));
  return numbers;
}

std::string joined(std::initializer_list<std::string> values) {
  std::string line;
  for (const std::string& value : values) line += (line.empty() ? "" : ",") + value;
  return line + "\r\n";
}

std::string contentOf(const SoundSettings& s) {
  const auto whole = [](int value) { return std::to_string(value); };
  return joined({whole(s.rumble.Volume), singleText(s.rumble.Factor), whole(s.rumble.MaxVolume),
                 whole(s.bump.Volume), singleText(s.bump.Factor), whole(s.bump.MaxVolume),
                 whole(s.tyres.Volume), whole(s.start.Volume)}) +
         joined({whole(s.rumble.Threshold), whole(s.rumble.Enabled), whole(s.bump.Enabled),
                 whole(s.tyres.Enabled), whole(s.start.Enabled)});
}

}  // namespace

void WriteSoundPars(Operator& op, const std::string& folder, const SoundSettings& settings) {
  const std::string path = folder + "sound.cfg";
  CheckFileExists(op, path, BoxIcon::Exclamation);
  replaceKeepingBackups(path, contentOf(settings));
}

void SoundSettings::read(const std::string& path, bool soundOn) {
  const std::string content = readFile(path);
  TextLines lines(content);
  SoundSettings fresh = *this;

  const auto volumes = numbersOf(lines.next(), 8);
  fresh.rumble.Volume = toInt16(volumes[0]);
  fresh.rumble.Factor = toSingle(volumes[1]);
  fresh.rumble.MaxVolume = toInt16(volumes[2]);
  fresh.bump.Volume = toInt16(volumes[3]);
  fresh.bump.Factor = toSingle(volumes[4]);
  fresh.bump.MaxVolume = toInt16(volumes[5]);
  fresh.tyres.Volume = toInt16(volumes[6]);
  fresh.start.Volume = toInt16(volumes[7]);

  std::vector<double> flags;
  if (soundOn)
    flags.assign(5, 0);
  else if (!lines.atEnd())
    flags = numbersOf(lines.next(), 5);
  if (!flags.empty()) {
    fresh.rumble.Threshold = toInt16(flags[0]);
    fresh.rumble.Enabled = toInt16(flags[1]);
    fresh.bump.Enabled = toInt16(flags[2]);
    fresh.tyres.Enabled = toInt16(flags[3]);
    fresh.start.Enabled = toInt16(flags[4]);
  }
  *this = fresh;
}

}  // namespace vorlent
