#include "platform/qt/XdgDocuments.h"

#include <QCoreApplication>
#include <QProcess>

namespace vorlent {
namespace {

constexpr int SyntaxOrFileMissing = 2;
constexpr int ToolMissing = 3;
constexpr int ActionFailed = 4;

}  // namespace

int XdgDocuments::resultOf(int status) {
  switch (status) {
    case 0:
      return HighestFault + 1;
    case SyntaxOrFileMissing:
    case ActionFailed:
      return NoAssociation;
    default:
      return status < NoAssociation ? status : ToolMissing;
  }
}

/// The process object goes with its end, or with the program.
void XdgDocuments::open(const std::string& path, Done done) {
  auto* process = new QProcess(QCoreApplication::instance());
  process->setStandardInputFile(QProcess::nullDevice());
  process->setStandardOutputFile(QProcess::nullDevice());
  process->setStandardErrorFile(QProcess::nullDevice());
  QObject::connect(process, &QProcess::finished, process,
                   [process, done](int status, QProcess::ExitStatus end) noexcept {
                     process->deleteLater();
                     done(end == QProcess::NormalExit ? resultOf(status) : ToolMissing);
                   });
  QObject::connect(process, &QProcess::errorOccurred, process,
                   [process, done](QProcess::ProcessError error) noexcept {
                     if (error != QProcess::FailedToStart) return;
                     process->deleteLater();
                     done(ToolMissing);
                   });
  process->start(QString::fromStdString(program_), {QString::fromStdString(path)});
}

}  // namespace vorlent
