#include "extras/SoundSettings.h"

#include <vector>

#include "base/TextLines.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"

namespace vorlent {
namespace {

std::vector<double> numbersOf(const std::string& line, std::size_t count) {
  const auto fields = commaFields(line);
  if (fields.size() < count) throw RuntimeError(RuntimeError::InputPastEnd);
  std::vector<double> numbers;
  for (std::size_t i = 0; i < count; ++i) numbers.push_back(numberOf(fields[i]));
  return numbers;
}

}  // namespace

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
