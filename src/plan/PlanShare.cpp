#include "plan/PlanShare.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "base/IniDocument.h"
#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/systemPath.h"
#include "base/text.h"
#include "plan/PerfDatabase.h"
#include "plan/planRows.h"

namespace vorlent {
namespace {

constexpr std::size_t LargestText_bytes = 1 << 20;

[[noreturn]] void refuse(int number, const std::string& file, const std::string& why) {
  throw RuntimeError(number, file + ": " + why);
}

void makeFolder(const std::string& path) {
  std::error_code failed;
  std::filesystem::create_directories(systemPath(nativePath(path)), failed);
  if (failed) refuse(RuntimeError::PathAccess, path, failed.message());
}

std::string withAircraft(const std::string& file, std::string_view aircraft) {
  std::optional<std::string> text = std::string();
  if (fileExists(file)) text = readFileUpTo(file, LargestText_bytes);
  if (!text) refuse(RuntimeError::PathAccess, file, "it is too large");
  IniDocument document(*text);
  document.set("Flight", "Aircraft", aircraft);
  return document.text();
}

}  // namespace

PlanShare::PlanShare(const std::string& folder, std::string database)
    : fms_(joinedPath(folder, "FMS")), database_(std::move(database)) {}

void PlanShare::write(const PlannedFlight& flight, std::size_t leg) const {
  makeFolder(joinedPath(fms_, "db"));
  put("plan.cfg", withAircraft(joinedPath(fms_, "plan.cfg"), flight.aircraft.name));
  put("db/temp.mdb", perfDatabase(database_, perfDataOf(flight, leg)));
  put("PROF", planFileText(profRows(flight, leg)));
  put("EXEC", planFileText(execRows(flight, leg)));
}

std::optional<PlanShare::Active> PlanShare::active() const {
  const std::string file = joinedPath(fms_, "ACTIVE");
  try {
    const auto text = readFileUpTo(file, LargestText_bytes);
    std::error_code failed;
    const auto time = std::filesystem::last_write_time(systemPath(nativePath(file)), failed);
    if (!text || failed) return std::nullopt;
    return Active{trimmed(text->substr(0, text->find_first_of("\r\n"))),
                  time.time_since_epoch().count()};
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

void PlanShare::forgetActive() const {
  const std::string file = joinedPath(fms_, "ACTIVE");
  if (fileExists(file)) deleteFile(file);
}

void PlanShare::put(const std::string& name, const std::string& content) const {
  const std::string file = joinedPath(fms_, name);
  try {
    replaceFile(file, content, Link::Replaced);
  } catch (const RuntimeError& error) {
    refuse(error.number(), file, error.description());
  }
}

}  // namespace vorlent
