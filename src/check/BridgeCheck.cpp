#include "check/BridgeCheck.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "simlink/Snapshot.h"

namespace vorlent {
namespace {

constexpr int SampleInterval_ms = 250;
constexpr int EchoInterval_ms = 50;
/// A bridge may take some frames until it shows what was written.
constexpr int EchoLimit_ms = 1000;

constexpr OffsetRow PauseRow{0x0264, OffsetForm::U8, "pause", "", 1, 0, 1};
constexpr OffsetRow ReadyRow{0x3364, OffsetForm::U8, "not ready", "", 1, 0, 0};

/// What is written differs by a five-hundredth of the range, and has to come back to half of that:
/// a simulator may keep another precision than the offset has. A switch goes over.
double stepOf(const OffsetRow& row) {
  const double step = (row.highest - row.lowest) * row.perUnit / 500;
  return row.form == OffsetForm::Double ? step : std::max(1.0, std::floor(step));
}

/// On the side where there is room.
double otherThan(double number, const OffsetRow& row) {
  const double step = stepOf(row);
  return number + step <= row.highest * row.perUnit ? number + step : number - step;
}

}  // namespace

struct BridgeCheck::Finding {
  const OffsetRow* row;
  std::optional<double> number;
  bool moves = false;

  double value() const { return *number / row->perUnit; }
};

bool BridgeCheck::run() {
  print_(fmt::format("version {:08X}, simulator {}\n", link_.version(), link_.simulatorNumber()));
  if (!isReady()) {
    print_("3364 is not 0: the simulator is not ready, and the server would wait\n");
    return false;
  }
  const bool paused = read(PauseRow).value_or(0) != 0;
  if (paused) print_("0264 is not 0: paused, nothing has to move\n");
  std::vector<Finding> findings;
  for (const OffsetRow& row : offsetRows()) findings.push_back({&row, read(row)});
  for (int passed_ms = 0; passed_ms < settings_.watch_s * 1000; passed_ms += SampleInterval_ms) {
    sleep_(SampleInterval_ms);
    for (Finding& finding : findings)
      finding.moves = finding.moves || read(*finding.row) != finding.number;
  }
  std::size_t wrong = 0;
  const bool poll = takesPoll();
  for (const Finding& finding : findings) {
    const std::string fault = faultOf(finding, paused);
    wrong += fault.empty() ? 0 : 1;
    tell(finding, fault);
  }
  print_(wrong == 0 ? fmt::format("all {} offsets are right\n", findings.size())
                    : fmt::format("{} of {} offsets are wrong\n", wrong, findings.size()));
  return poll && wrong == 0;
}

bool BridgeCheck::takesPoll() {
  std::vector<OffsetLink::Extent> reads;
  reads.reserve(std::size(SnapshotReads));
  for (const SnapshotRead& read : SnapshotReads) reads.push_back({read.offset, read.size});
  if (link_.readTogether(reads)) return true;
  print_(fmt::format("WRONG  the {} reads of the server's poll in one request are refused\n",
                     reads.size()));
  return false;
}

bool BridgeCheck::isReady() { return read(ReadyRow) == 0.0; }

/// Nothing when the request is refused or leaves in the block what was there before.
std::optional<double> BridgeCheck::read(const OffsetRow& row) {
  std::array<std::byte, 8> bytes;
  const std::span data = std::span(bytes).first(sizeOf(row.form));
  for (const auto mark : {std::byte{0xA5}, std::byte{0x5A}}) {
    std::fill(data.begin(), data.end(), mark);
    if (!link_.read(row.offset, data)) return std::nullopt;
    if (!std::all_of(data.begin(), data.end(), [mark](std::byte b) { return b == mark; }))
      return numberIn(data, row.form);
  }
  return std::nullopt;
}

bool BridgeCheck::write(const OffsetRow& row, double number) {
  std::array<std::byte, 8> bytes;
  const std::span data = std::span(bytes).first(sizeOf(row.form));
  putNumber(data, row.form, number);
  return link_.write(row.offset, data);
}

bool BridgeCheck::becomes(const OffsetRow& row, double number) {
  for (int waited_ms = 0; waited_ms <= EchoLimit_ms; waited_ms += EchoInterval_ms) {
    const std::optional<double> now = read(row);
    if (now && std::fabs(*now - number) < stepOf(row) / 2) return true;
    sleep_(EchoInterval_ms);
  }
  return false;
}

/// Empty when all is right.
std::string BridgeCheck::faultOf(const Finding& finding, bool paused) {
  const OffsetRow& row = *finding.row;
  if (!finding.number) return "is not answered";
  // Written so that what is no number is out of range.
  if (!(finding.value() >= row.lowest && finding.value() <= row.highest))
    return fmt::format("is out of range, {} to {}", row.lowest, row.highest);
  if (row.use == OffsetUse::Clock && !finding.moves && !paused) return "does not move";
  return row.use == OffsetUse::Written && settings_.writes ? faultOfWriting(row) : "";
}

std::string BridgeCheck::faultOfWriting(const OffsetRow& row) {
  const std::optional<double> before = read(row);
  if (!before) return "is not answered";
  const double other = otherThan(*before, row);
  const bool taken = write(row, other) && becomes(row, other);
  if (!write(row, *before) || !becomes(row, *before)) return "does not go back to what it was";
  return taken ? "" : "does not take what is written";
}

void BridgeCheck::tell(const Finding& finding, const std::string& fault) {
  const OffsetRow& row = *finding.row;
  const bool written = row.use == OffsetUse::Written && settings_.writes;
  const std::string good =
      fmt::format("{}{}", finding.moves ? "moves" : "steady", written ? ", written" : "");
  print_(fmt::format("{:5}  {:04X}  {:32} {:>12} {:6}  {}\n", fault.empty() ? "ok" : "WRONG",
                     row.offset, row.name,
                     finding.number ? fmt::format("{:.2f}", finding.value()) : "-", row.unit,
                     fault.empty() ? good : fault));
}

}  // namespace vorlent
