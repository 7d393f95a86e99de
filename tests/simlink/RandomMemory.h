#pragma once

#include <random>
#include <string>

#include "support/PolledServer.h"

namespace vorlent {

/// Offsets full of chance, with what is special to a poll more often than chance would bring it.
class RandomMemory {
 public:
  explicit RandomMemory(unsigned seed) : random_(seed) {}

  void fill(FakeSimulatorBus& bus);

  bool oneIn(unsigned n) { return random_() % n == 0; }
  unsigned below(unsigned n) { return static_cast<unsigned>(random_() % n); }

 private:
  double sensibleDouble();
  void drawSmallNumbers(FakeSimulatorBus& bus);
  void drawTexts(FakeSimulatorBus& bus);
  std::string dmeText();

  std::mt19937_64 random_;
};

/// Of the store and the autoflight, all that a record carries and no poll writes.
void changeWhatIsNotPolled(Server& server, RandomMemory& random);

/// What a poll decodes and no record carries.
void compareOffRecord(const modPublic& v, const IndependentRecord& independent);

}  // namespace vorlent
