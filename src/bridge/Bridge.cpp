#include "bridge/Bridge.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "simulator/Identity.h"

namespace vorlent {
namespace {

bool overlap(const MappingRow& row, std::size_t offset, std::size_t size) {
  return row.offset < offset + size && offset < row.offset + sizeOf(row.width);
}

double numberOf(const MappingRow& row, const std::vector<std::size_t>& slots,
                const PropertyValues& values) {
  double number = row.plus;
  for (std::size_t i = 0; i < slots.size(); ++i) number += row.terms[i].factor * values[slots[i]];
  return number;
}

}  // namespace

Bridge::Bridge(OffsetMemory& memory, const Mapping& mapping, SimulatorLink& link, Clock clock,
               Note note, std::string aircraft)
    : memory_(memory),
      mapping_(mapping),
      link_(link),
      clock_(std::move(clock)),
      note_(std::move(note)),
      requests_(memory, note_,
                [this](std::size_t offset, std::size_t size) { takeWrite(offset, size); }),
      forced_(std::move(aircraft)) {
  // As FSUIPC: that is how the rows are scaled.
  writeIdentity(memory_, false);
  writeReadiness(memory_, false);
  for (const MappingRow& row : mapping_.rows)
    if (row.direction == Direction::Kept) show(memory_, row, row.plus);
  choose(forced_);
}

std::int32_t Bridge::answer(std::span<std::byte> block) {
  advance();
  return requests_.serve(block);
}

void Bridge::advance() {
  const double now_s = clock_();
  link_.advance(now_s);
  const std::string flown = forced_.empty() ? link_.aircraft() : forced_;
  if (flown != aircraft_) {
    note_("the aircraft is " + (flown.empty() ? "not known" : flown));
    choose(flown);
  }
  const bool flows = link_.flows(now_s);
  if (flows && link_.revision() != shown_) showAll(now_s);
  sendWhatIsDue(now_s);
  if (flows != ready_) tellReadiness(flows);
}

void Bridge::choose(const std::string& aircraft) {
  aircraft_ = aircraft;
  rows_.clear();
  for (const MappingRow& row : rowsFor(mapping_, aircraft)) {
    Row& added = rows_.emplace_back();
    added.row = row;
    for (const Term& term : row.terms) added.slots.push_back(link_.values().slotOf(term.property));
    if (row.direction == Direction::Constant) show(memory_, row, row.plus);
    if (row.direction == Direction::In && row.terms.empty()) show(memory_, row, 0);
  }
  shown_ = 0;
}

void Bridge::showAll(double now_s) {
  for (Row& row : rows_) showRow(row, now_s);
  shown_ = link_.revision();
}

void Bridge::showRow(Row& row, double now_s) {
  if (row.row.terms.empty()) return;
  const double number = numberOf(row.row, row.slots, link_.values());
  if (!isHeld(row, number, now_s)) show(memory_, row.row, number);
}

/// What the simulator says may be older than what was written.
bool Bridge::isHeld(Row& row, double number, double now_s) {
  Control& control = row.control;
  if (control.held && (now_s >= control.heldUntil_s || alike(row.row, number, control.number)))
    control.held = false;
  return control.held || control.waits;
}

void Bridge::takeWrite(std::size_t offset, std::size_t size) {
  const double now_s = clock_();
  bool mapped = false;
  for (Row& row : rows_) {
    if (!overlap(row.row, offset, size)) continue;
    mapped = mapped || row.row.direction == Direction::Both || row.row.direction == Direction::Kept;
    if (row.row.direction == Direction::Both) takeWrite(row, now_s);
  }
  if (!mapped) noteUnmapped(offset, size);
}

void Bridge::takeWrite(Row& row, double now_s) {
  row.control.waits = row.row.bytewise;
  row.control.due_s = now_s + Settling_s;
  if (!row.row.bytewise) send(row, now_s);
}

/// A lever stops at its end, and reads back where it stopped.
void Bridge::send(Row& row, double now_s) {
  row.control.waits = false;
  const std::optional<double> number = shown(memory_, row.row);
  if (!number || !link_.flows(now_s)) {
    shown_ = 0;
    return;
  }
  const double property = propertyFrom(row.row, *number);
  row.control.number = row.row.terms.front().factor * property + row.row.plus;
  row.control.held = true;
  row.control.heldUntil_s = now_s + Hold_s;
  if (!alike(row.row, *number, row.control.number)) show(memory_, row.row, row.control.number);
  link_.write(row.row, property, now_s);
}

void Bridge::sendWhatIsDue(double now_s) {
  for (Row& row : rows_)
    if (row.control.waits && now_s >= row.control.due_s) send(row, now_s);
}

void Bridge::tellReadiness(bool ready) {
  ready_ = ready;
  writeReadiness(memory_, ready);
  note_(mapping_.simulator + (ready ? ": data come in" : ": no data"));
}

void Bridge::noteUnmapped(std::size_t offset, std::size_t size) {
  if (!told_.insert(offset).second) return;
  note_(fmt::format("write of {} bytes to {:04X}: {} has nothing for it", size, offset,
                    mapping_.simulator));
}

}  // namespace vorlent
