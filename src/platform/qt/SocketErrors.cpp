#include "platform/qt/SocketErrors.h"

#include "platform/UdpSocket.h"

namespace vorlent {
namespace {

constexpr int AccessDenied = 10013;
constexpr int InvalidArgument = 10022;
constexpr int MessageTooLong = 10040;
constexpr int NetworkDown = 10050;
constexpr int NoBufferSpace = 10055;

int winsockNumber(QAbstractSocket::SocketError error) {
  switch (error) {
    case QAbstractSocket::TemporaryError:
      return SocketError::WouldBlock;
    case QAbstractSocket::UnsupportedSocketOperationError:
      return SocketError::ProtocolNotSupported;
    case QAbstractSocket::AddressInUseError:
      return SocketError::AddressInUse;
    case QAbstractSocket::SocketAddressNotAvailableError:
      return SocketError::AddressNotAvailable;
    case QAbstractSocket::SocketAccessError:
      return AccessDenied;
    case QAbstractSocket::DatagramTooLargeError:
      return MessageTooLong;
    case QAbstractSocket::NetworkError:
      return NetworkDown;
    case QAbstractSocket::SocketResourceError:
      return NoBufferSpace;
    default:
      return InvalidArgument;
  }
}

}  // namespace

RuntimeError socketError(QAbstractSocket::SocketError error, const std::string& description) {
  const int number = winsockNumber(error);
  return {number, number == SocketError::WouldBlock ? "SckWouldBlock" : description};
}

}  // namespace vorlent
