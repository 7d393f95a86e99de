#include "platform/qt/QtMessages.h"

#include <QString>
#include <QtGlobal>
#include <utility>

namespace vorlent {
namespace {

// Qt asks for a function alone, so what it calls stands beside it.
QtMessages::Write& writer() {
  static QtMessages::Write write;
  return write;
}
QtMessageHandler ownOfQt = nullptr;

void handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type == QtFatalMsg) return ownOfQt(type, context, message);
  writer()(qFormatLogMessage(type, context, message).toStdString() + "\n");
}

}  // namespace

QtMessages::QtMessages(Write write) {
  writer() = std::move(write);
  ownOfQt = qInstallMessageHandler(handle);
}

QtMessages::~QtMessages() { qInstallMessageHandler(nullptr); }

}  // namespace vorlent
