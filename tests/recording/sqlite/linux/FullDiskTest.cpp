#include <gtest/gtest.h>

#include <filesystem>

#include "recording/samples.h"
#include "recording/sqlite/RecordingReader.h"
#include "recording/sqlite/RecordingWriter.h"
#include "support/FullDisk.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using namespace recorded;

TEST(RecordingOnAFullDisk, CountsWhatIsMissingAndGoesOnLater) {
  const TempFolder folder;
  const std::string path = folder / "a recording.sqlite";
  RecordingWriter writer(path);
  for (const Event& event : sampleStart()) writer.add(event);
  writer.add({1, sampleExchange("aaaaaaa")});
  writer.commit();
  {
    const FullDisk full(std::filesystem::file_size(path));
    for (int i = 0; i < 10; ++i)
      writer.add({2 + i, StatusShown{1, std::string(5000, static_cast<char>('a' + i))}});
    EXPECT_EQ(raisedBy([&] { writer.commit(); }), RuntimeError::PathAccess);
  }
  writer.add({20, sampleExchange("bbbbbbb")});
  writer.commit();
  RecordingReader reader(path);
  std::vector<Event> events;
  while (auto event = reader.next()) events.push_back(*event);
  std::vector<Event> expected = sampleStart();
  expected.push_back({1, sampleExchange("aaaaaaa")});
  expected.push_back({20, Dropped{10}});
  expected.push_back({20, sampleExchange("bbbbbbb")});
  EXPECT_EQ(events, expected);
  EXPECT_EQ(reader.summary().dropped, 10U);
}

}  // namespace
}  // namespace vorlent
