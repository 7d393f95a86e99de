#include "platform/qt/HostAddresses.h"

#include <QHostAddress>
#include <QHostInfo>

#include "base/RuntimeError.h"

namespace vorlent {

std::vector<std::string> hostAddresses(const std::string& host) {
  if (host.empty()) return {};
  const QString name = QString::fromStdString(host);
  // An address would be looked up for its name.
  if (QHostAddress().setAddress(name)) return {host};
  std::vector<std::string> addresses;
  for (const QHostAddress& address : QHostInfo::fromName(name).addresses())
    if (address.protocol() == QAbstractSocket::IPv4Protocol)
      addresses.push_back(address.toString().toStdString());
  if (addresses.empty())
    throw RuntimeError(RuntimeError::InvalidCall, "no machine \"" + host + "\" is known here");
  return addresses;
}

}  // namespace vorlent
