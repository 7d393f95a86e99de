#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "recorder/RecorderHelper.h"
#include "recording/EventQueue.h"
#include "recording/samples.h"
#include "recording/sqlite/RecordingReader.h"
#include "support/TempFolder.h"

namespace vorlent {

/// The helper, and what the sample is on its way.
class HelperTest : public testing::Test {
 protected:
  HelperTest()
      : helper(files.path(), 1'000'000, [this](const std::string& s) { told.push_back(s); }) {}

  static std::string sampleBytes() {
    FakeRecorderLink link;
    EventQueue queue(link);
    for (const recorded::Event& event : sampleStart()) queue.add(event);
    for (const recorded::Event& event : sampleEvents()) queue.add(event);
    queue.flush();
    return link.taken;
  }
  std::size_t eventsInTheFile() const {
    RecordingReader reader(files / "Vorlent 2026-11-22 13.16.00.sqlite");
    std::size_t count = 0;
    while (reader.next()) ++count;
    return count;
  }

  TempFolder files;
  std::vector<std::string> told;
  RecorderHelper helper;
};

}  // namespace vorlent
