#include "recorder/RecorderHelper.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"

namespace vorlent {

using namespace recorded;

RecorderHelper::RecorderHelper(const std::string& folder, std::uint64_t size_bytes, Tell tell)
    : folder_(folder), size_bytes_(size_bytes), tell_(std::move(tell)) {}

void RecorderHelper::take(std::string_view bytes, std::int64_t now_ms) {
  stream_.add(bytes);
  while (const auto event = stream_.next()) {
    add(*event);
    if (!commitAt_ms_) commitAt_ms_ = now_ms + CommitPeriod_ms;
  }
}

void RecorderHelper::add(const Event& event) {
  if (const auto* start = std::get_if<Started>(&event.what))
    file_ = std::make_unique<File>(folder_.newFile(start->local_time));
  if (!file_) throw RuntimeError(RuntimeError::InputPastEnd);
  file_->writer.add(event);
}

std::optional<std::int64_t> RecorderHelper::pause_ms(std::int64_t now_ms) const {
  if (!commitAt_ms_) return std::nullopt;
  return std::max<std::int64_t>(0, *commitAt_ms_ - now_ms);
}

void RecorderHelper::work(std::int64_t now_ms) {
  if (commitAt_ms_ && now_ms >= *commitAt_ms_) {
    commit();
    commitAt_ms_.reset();
  }
  if (now_ms < folderAt_ms_) return;
  folder_.keepWithin(size_bytes_, file_ ? file_->path : "");
  folderAt_ms_ = now_ms + FolderPeriod_ms;
}

void RecorderHelper::commit() {
  if (!file_) return;
  try {
    file_->writer.commit();
    told_.clear();
  } catch (const RuntimeError& error) {
    if (error.description() == told_) return;
    told_ = error.description();
    tell_(told_);
  }
}

}  // namespace vorlent
