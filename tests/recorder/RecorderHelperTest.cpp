#include "recorder/RecorderHelper.h"

#include <gmock/gmock.h>

#include "recorder/HelperTest.h"
#include "recorder/namesIn.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(HelperTest, PutsWhatComesIntoTheFileInATenthOfASecond) {
  EXPECT_EQ(helper.pause_ms(5000), std::nullopt);
  helper.take(sampleBytes(), 5000);
  EXPECT_EQ(helper.pause_ms(5040), 60);
  helper.work(5099);
  EXPECT_EQ(eventsInTheFile(), 1U);  // a start of which nothing is known yet
  helper.work(5100);
  EXPECT_EQ(eventsInTheFile(), sampleStart().size() + sampleEvents().size());
  EXPECT_EQ(helper.pause_ms(5100), std::nullopt);
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(HelperTest, LooksAfterTheFolderAtItsStartAndOnceAMinute) {
  const std::string old = "Vorlent 2020-01-01 00.00.00.sqlite";
  files.write(old, std::string(1'000'001, 'x'));
  helper.work(1000);
  EXPECT_THAT(namesIn(files.path()), IsEmpty());
  files.write(old, std::string(1'000'001, 'x'));
  helper.work(60'999);
  EXPECT_THAT(namesIn(files.path()), ElementsAre(old));
  helper.work(61'000);
  EXPECT_THAT(namesIn(files.path()), IsEmpty());
}

TEST_F(HelperTest, RefusesWhatDoesNotBeginWithAStart) {
  FakeRecorderLink link;
  EventQueue queue(link);
  queue.add({0, recorded::TimerTicked{0}});
  queue.flush();
  EXPECT_EQ(raisedBy([&] { helper.take(link.taken, 0); }), RuntimeError::InputPastEnd);
}

}  // namespace
}  // namespace vorlent
