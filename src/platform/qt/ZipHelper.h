#pragma once

#include <QProcess>
#include <memory>
#include <string>

#include "platform/ZipFiles.h"

namespace vorlent {

/// Zip files through a helper, which is killed past the deadline, and with this object.
class ZipHelper : public ZipFiles {
 public:
  static constexpr int Deadline_ms = 120000;

  explicit ZipHelper(std::string program, int deadline_ms = Deadline_ms)
      : program_(std::move(program)), deadline_ms_(deadline_ms) {}
  ~ZipHelper() override;
  ZipHelper(const ZipHelper&) = delete;
  ZipHelper& operator=(const ZipHelper&) = delete;

  void pack(const std::string& folder, const std::string& zip, Done done) override;
  void unpack(const std::string& zip, const std::string& folder, Done done) override;

 private:
  void run(const QStringList& arguments, const Done& done);

  std::string program_;
  int deadline_ms_;
  QObject processes_;  ///< those that run
};

}  // namespace vorlent
