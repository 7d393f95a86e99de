#include "platform/qt/ZipHelper.h"

#include <QTimer>

#include "base/files.h"

namespace vorlent {
namespace {

QString native(const std::string& path) { return QString::fromStdString(nativePath(path)); }

/// What the helper says is why it did not succeed.
std::string faultOf(QProcess& process, int status, QProcess::ExitStatus end) {
  if (end == QProcess::NormalExit && status == 0) return {};
  const std::string said =
      QString::fromUtf8(process.readAllStandardError()).trimmed().toStdString();
  return said.empty() ? "The helper for zip files was too slow, or crashed" : said;
}

}  // namespace

ZipHelper::~ZipHelper() {
  for (auto* process : processes_.findChildren<QProcess*>()) {
    process->disconnect();
    process->kill();
    process->waitForFinished();
  }
}

void ZipHelper::pack(const std::string& folder, const std::string& zip, Done done) {
  run({"pack", native(folder), native(zip)}, done);
}

void ZipHelper::unpack(const std::string& zip, const std::string& folder, Done done) {
  run({"unpack", native(zip), native(folder)}, done);
}

void ZipHelper::run(const QStringList& arguments, const Done& done) {
  auto* process = new QProcess(&processes_);
  process->setStandardInputFile(QProcess::nullDevice());
  process->setStandardOutputFile(QProcess::nullDevice());
  QObject::connect(process, &QProcess::finished, process,
                   [process, done](int status, QProcess::ExitStatus end) noexcept {
                     process->deleteLater();
                     done(faultOf(*process, status, end));
                   });
  QObject::connect(process, &QProcess::errorOccurred, process,
                   [process, done](QProcess::ProcessError error) noexcept {
                     if (error != QProcess::FailedToStart) return;
                     process->deleteLater();
                     done("The helper for zip files is missing");
                   });
  QTimer::singleShot(deadline_ms_, process, &QProcess::kill);
  process->start(QString::fromStdString(program_), arguments);
}

}  // namespace vorlent
