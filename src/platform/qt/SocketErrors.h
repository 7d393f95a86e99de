#pragma once

#include <QAbstractSocket>
#include <string>

#include "base/RuntimeError.h"

namespace vorlent {

/// The RuntimeError for an error of Qt's, with its Winsock number (winsock2.h). "SckWouldBlock" is
/// the description of a would-block; the others keep `description`.
RuntimeError socketError(QAbstractSocket::SocketError error, const std::string& description);

}  // namespace vorlent
