#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "plan/FlightPlanner.h"

namespace vorlent {

/// The files of a plan in a share: the folder that another machine knows as `\\host\Tarnwick`.
class PlanShare {
 public:
  /// What the server has written into ACTIVE, and when: a later content has another time.
  struct Active {
    std::string waypoint;  ///< without blanks around it
    std::int64_t writtenAt;
    bool operator==(const Active&) const = default;
  };

  /// The folder is there already. `database` is the shipped one.
  PlanShare(const std::string& folder, std::string database);

  /// Puts down EXEC, PROF, plan.cfg and db\temp.mdb for a leg, each in one piece, and makes the
  /// folders that are missing. Of plan.cfg all but the aircraft stays. Raises what base/files.h
  /// raises, with the name of the file, and what perfDatabase() raises.
  void write(const PlannedFlight& flight, std::size_t leg) const;

  /// Nothing when there is no such file or it cannot be read.
  std::optional<Active> active() const;
  /// What an earlier flight has left would be taken for an answer.
  void forgetActive() const;

 private:
  void put(const std::string& name, const std::string& content) const;

  std::string fms_;  ///< the folder FMS
  std::string database_;
};

}  // namespace vorlent
