#include "recording/sqlite/RecordingReader.h"

#include <deque>
#include <map>
#include <utility>

#include "base/RuntimeError.h"
#include "recording/Page.h"
#include "recording/sqlite/Database.h"
#include "recording/sqlite/tables.h"
#include "recording/sqlite/zstdFrames.h"

namespace vorlent {

using namespace recorded;

class RecordingReader::File {
 public:
  explicit File(const std::string& path) : database_(path, Database::Open::Existing) {
    page_ = database_.statement(
        "SELECT first_us, last_us, whole, events, content FROM page WHERE number = ?");
    readSummary();
    readRequests();
    rewind();
  }

  std::optional<Event> next();
  void rewind();
  void seek(std::int64_t time_us);

  RecordingSummary summary;
  std::string fault;

 private:
  void readSummary();
  void readRequests();
  void readStart();
  bool readPage();

  Database database_;
  std::unique_ptr<Statement> page_;
  std::int64_t nextPage_ = 1;
  std::map<std::uint64_t, std::shared_ptr<const Request>> requests_;
  PageReader pages_;
  std::deque<Event> events_;  ///< read and not given yet
};

void RecordingReader::File::readSummary() {
  const auto value = database_.statement("SELECT value FROM recording WHERE key = ?");
  const auto ask = [&value](std::string_view key) {
    value->reset();
    value->set(0, key);
    return value->step();
  };
  if (!ask("format") || value->number(0) > RecordingFormat)
    throw RuntimeError(RuntimeError::InternalError, "it is of a newer format than this program");
  if (ask("version")) summary.version = value->text(0);
  if (ask("started")) summary.started = value->text(0);
  if (ask("dropped")) summary.dropped = static_cast<std::uint64_t>(value->number(0));
  summary.ended = ask("ended");
  const auto last = database_.statement("SELECT last_us FROM page ORDER BY number DESC LIMIT 1");
  if (last->step()) summary.length_us = last->number(0);
}

void RecordingReader::File::readRequests() {
  const auto rows = database_.statement("SELECT id, operations FROM request");
  while (rows->step())
    requests_[static_cast<std::uint64_t>(rows->number(0))] =
        std::make_shared<const Request>(requestOf(rows->text(1)));
}

void RecordingReader::File::rewind() {
  fault.clear();
  events_.clear();
  readStart();
  nextPage_ = 1;
}

void RecordingReader::File::readStart() {
  events_.push_back({0, Started{summary.version, summary.started}});
  const auto files = database_.statement("SELECT path, size, content FROM file ORDER BY path");
  while (files->step())
    events_.push_back({0, FileKept{files->text(0), static_cast<std::uint64_t>(files->number(1)),
                                   !files->isNull(2), files->text(2)}});
}

void RecordingReader::File::seek(std::int64_t time_us) {
  fault.clear();
  const auto whole = database_.statement(
      "SELECT number FROM page WHERE whole AND first_us <= ? ORDER BY number DESC LIMIT 1");
  whole->set(0, time_us);
  nextPage_ = whole->step() ? whole->number(0) : 1;
  events_.clear();
}

bool RecordingReader::File::readPage() {
  // Held no longer than it takes to read a page: it may be written at this moment.
  page_->reset();
  page_->set(0, nextPage_);
  if (!page_->step()) return false;
  const Page page{page_->number(2) != 0, page_->number(0), page_->number(1),
                  static_cast<std::uint64_t>(page_->number(3)),
                  uncompressed(page_->text(4), MostOfAPage_bytes)};
  page_->reset();
  ++nextPage_;
  const auto request = [this](std::uint64_t number) {
    const auto found = requests_.find(number);
    return found == requests_.end() ? nullptr : found->second;
  };
  for (Event& event : pages_.read(page, request)) events_.push_back(std::move(event));
  return true;
}

std::optional<Event> RecordingReader::File::next() {
  if (!fault.empty()) return std::nullopt;
  try {
    while (events_.empty())
      if (!readPage()) return std::nullopt;
  } catch (const DatabaseError& error) {
    fault = "The recording cannot be read on: " + error.words;
  } catch (const RuntimeError&) {
    fault = "The recording cannot be read on: a page is damaged";
  }
  if (!fault.empty()) return std::nullopt;
  Event event = std::move(events_.front());
  events_.pop_front();
  return event;
}

RecordingReader::RecordingReader(const std::string& path) {
  const auto refuse = [&path](const std::string& why) -> RuntimeError {
    return {RuntimeError::PathAccess, path + " cannot be read as a recording: " + why};
  };
  try {
    file_ = std::make_unique<File>(path);
  } catch (const DatabaseError& error) {
    throw refuse(error.words);
  } catch (const RuntimeError& error) {
    throw refuse(error.description());
  }
}

RecordingReader::~RecordingReader() = default;

const RecordingSummary& RecordingReader::summary() const { return file_->summary; }
std::optional<Event> RecordingReader::next() { return file_->next(); }
void RecordingReader::rewind() { file_->rewind(); }
void RecordingReader::seek(std::int64_t time_us) { file_->seek(time_us); }
const std::string& RecordingReader::fault() const { return file_->fault; }

}  // namespace vorlent
