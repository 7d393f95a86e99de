#include "recording/sqlite/RecordingWriter.h"

#include <sqlite3.h>

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "recording/Page.h"
#include "recording/plainLines.h"
#include "recording/sqlite/Database.h"
#include "recording/sqlite/tables.h"
#include "recording/sqlite/zstdFrames.h"

namespace vorlent {
namespace {

using namespace recorded;

/// So many pages of SQLite (4 KiB each) go into the file at once; until then they stand in the log
/// beside it. In a flight that is every half minute.
constexpr auto LogSettings = "PRAGMA journal_mode=WAL; PRAGMA wal_autocheckpoint=250";

/// A file that somebody holds is tried again; with more than this waiting, it is dropped.
constexpr std::size_t MostThatWaits_bytes = 8U << 20;

bool isOfTheStart(const Event& event) {
  return std::holds_alternative<Started>(event.what) ||
         std::holds_alternative<FileKept>(event.what);
}

/// Whether tables other than `page` have something of it.
bool isPlain(const Event& event) {
  if (const auto* exchange = std::get_if<Exchanged>(&event.what)) return !exchange->written.empty();
  return isOfTheStart(event) || std::holds_alternative<Ended>(event.what) ||
         plainLine(event).has_value();
}

[[noreturn]] void tellUser(const std::string& path, const DatabaseError& error) {
  throw RuntimeError(RuntimeError::PathAccess,
                     "The recording " + path + " cannot be written: " + error.words);
}

}  // namespace

class RecordingWriter::File {
 public:
  explicit File(const std::string& path);

  void add(const Event& event);
  void commit();
  /// The last of it: nothing is to be left beside the file.
  void close() {
    commit();
    database_.execute("PRAGMA journal_mode=DELETE");
  }

 private:
  void prepare();
  template <class Value>
  void tell(const char* key, const Value& value) {
    recording_->set(0, std::string_view(key)).set(1, value).run();
  }
  std::uint64_t numberOf(const std::shared_ptr<const Request>& request);
  void giveUpWhatWaits();
  void writeAll();
  void writePage();
  void writeTables(const Event& event);
  void write(std::int64_t time_us, const Started& start);
  void write(std::int64_t time_us, const FileKept& file);
  void write(std::int64_t time_us, const Exchanged& exchange);
  void write(std::int64_t time_us, const Ended& end);
  template <class Other>
  void write(std::int64_t, const Other&) {}

  Database database_;
  std::unique_ptr<Statement> recording_, file_, request_, page_, line_, written_;
  std::map<Request, std::uint64_t> requests_;
  std::shared_ptr<const Request> lastRequest_;  ///< mostly the next is the same
  std::uint64_t lastNumber_ = 0;                ///< of it
  std::vector<const Request*> newRequests_;     ///< that the file does not have yet
  PageWriter pages_;
  std::vector<Event> plain_;  ///< for the other tables
  std::int64_t dropped_ = 0;
  std::uint64_t untold_ = 0;  ///< of them, what no event has told yet
};

RecordingWriter::File::File(const std::string& path) : database_(path, Database::Open::New) {
  // The tables are in the file itself, so that it opens without its log. From then on nothing waits
  // for the disk but a log that goes into the file: a kill loses nothing of it, a power failure its
  // end, never the file.
  database_.execute("PRAGMA synchronous=NORMAL; BEGIN");
  database_.execute(RecordingTables);
  prepare();
  tell("format", std::int64_t{RecordingFormat});
  tell("dropped", dropped_);
  database_.execute("COMMIT");
  database_.execute(LogSettings);
}

void RecordingWriter::File::prepare() {
  recording_ = database_.statement("INSERT OR REPLACE INTO recording VALUES (?, ?)");
  file_ = database_.statement("INSERT OR REPLACE INTO file VALUES (?, ?, ?)");
  request_ = database_.statement("INSERT INTO request VALUES (?, ?)");
  page_ = database_.statement(
      "INSERT INTO page (first_us, last_us, whole, events, content) VALUES (?, ?, ?, ?, ?)");
  line_ = database_.statement("INSERT INTO line VALUES (?, ?, ?, ?)");
  written_ = database_.statement("INSERT INTO written VALUES (?, ?, ?)");
}

std::uint64_t RecordingWriter::File::numberOf(const std::shared_ptr<const Request>& request) {
  if (request == lastRequest_) return lastNumber_;
  const auto [found, isNew] = requests_.try_emplace(*request, requests_.size() + 1);
  if (isNew) newRequests_.push_back(&found->first);
  lastRequest_ = request;
  return lastNumber_ = found->second;
}

void RecordingWriter::File::add(const Event& event) {
  if (untold_ > 0) {
    const Event gap{event.time_us, Dropped{std::exchange(untold_, 0)}};
    pages_.add(gap);
    plain_.push_back(gap);
  }
  if (const auto* dropped = std::get_if<Dropped>(&event.what))
    dropped_ += static_cast<std::int64_t>(dropped->events);
  const auto* exchange = std::get_if<Exchanged>(&event.what);
  if (!isOfTheStart(event))
    pages_.add(event, exchange != nullptr ? numberOf(exchange->request) : 0);
  if (isPlain(event)) plain_.push_back(event);
}

void RecordingWriter::File::commit() {
  if (pages_.page().events == 0 && plain_.empty()) return;
  try {
    database_.execute("BEGIN IMMEDIATE");
    writeAll();
    database_.execute("COMMIT");
  } catch (const DatabaseError& error) {
    try {
      database_.execute("ROLLBACK");
    } catch (const DatabaseError&) {
      // SQLite has already done so by itself.
    }
    if (error.code == SQLITE_BUSY && pages_.page().bytes.size() < MostThatWaits_bytes) return;
    giveUpWhatWaits();
    throw;
  }
  newRequests_.clear();
  plain_.clear();
  pages_.next();
}

void RecordingWriter::File::giveUpWhatWaits() {
  const std::uint64_t events = pages_.page().events;
  untold_ += events;
  dropped_ += static_cast<std::int64_t>(events);
  plain_.clear();
  pages_.next(true);
}

void RecordingWriter::File::writeAll() {
  for (const Request* request : newRequests_)
    request_->set(0, static_cast<std::int64_t>(requests_.at(*request)))
        .set(1, std::string_view(textOf(*request)))
        .run();
  for (const Event& event : plain_) writeTables(event);
  if (pages_.page().events > 0) writePage();
}

void RecordingWriter::File::writePage() {
  const Page& page = pages_.page();
  page_->set(0, page.first_us)
      .set(1, page.last_us)
      .set(2, std::int64_t{page.whole})
      .set(3, static_cast<std::int64_t>(page.events))
      .setBytes(4, compressed(page.bytes))
      .run();
}

void RecordingWriter::File::writeTables(const Event& event) {
  if (const auto line = plainLine(event))
    line_->set(0, event.time_us)
        .set(1, std::string_view(line->kind))
        .set(2, std::string_view(line->who))
        .set(3, std::string_view(line->text))
        .run();
  if (std::holds_alternative<Dropped>(event.what)) tell("dropped", dropped_);
  std::visit([&](const auto& what) { write(event.time_us, what); }, event.what);
}

void RecordingWriter::File::write(std::int64_t, const Started& start) {
  tell("version", std::string_view(start.version));
  tell("started", std::string_view(start.local_time));
}

void RecordingWriter::File::write(std::int64_t, const FileKept& file) {
  file_->set(0, std::string_view(file.path)).set(1, static_cast<std::int64_t>(file.size_bytes));
  if (file.kept)
    file_->setBytes(2, file.content);
  else
    file_->setNull(2);
  file_->run();
}

void RecordingWriter::File::write(std::int64_t time_us, const Exchanged& exchange) {
  for (const PlainWrite& write : plainWrites(exchange))
    written_->set(0, time_us).set(1, std::int64_t{write.offset}).setBytes(2, write.bytes).run();
}

void RecordingWriter::File::write(std::int64_t, const Ended& end) {
  tell("ended", std::int64_t{end.exitStatus});
}

RecordingWriter::RecordingWriter(const std::string& path) : path_(path) {
  try {
    file_ = std::make_unique<File>(path);
  } catch (const DatabaseError& error) {
    tellUser(path_, error);
  }
}

RecordingWriter::~RecordingWriter() {
  try {
    file_->close();
  } catch (const DatabaseError&) {
    // Nobody is there any more who could be told.
  }
}

void RecordingWriter::add(const Event& event) { file_->add(event); }

void RecordingWriter::commit() {
  try {
    file_->commit();
  } catch (const DatabaseError& error) {
    tellUser(path_, error);
  }
}

}  // namespace vorlent
