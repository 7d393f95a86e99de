#include "simlink/controlWriters.h"

#include <cmath>

#include "base/numbers.h"
#include "core/Server.h"
#include "simlink/clsFSUIPC.h"

namespace vorlent {

// The result codes are not looked at: a typed write that fails does not come back.

void writeByte(Server& server, std::uint32_t offset, double value) {
  int result = clsFSUIPC::Okay;
  server.fsuipc->WriteByte(offset, 1, toByte(std::trunc(value)), result);
}

void writeLowHalf(Server& server, std::uint32_t offset, double value) {
  int result = clsFSUIPC::Okay;
  server.fsuipc->WriteLong(offset, 2, toInt32(value), result);
}

void writeLong(Server& server, std::uint32_t offset, double value) {
  int result = clsFSUIPC::Okay;
  server.fsuipc->WriteLong(offset, 4, toInt32(value), result);
}

void writeInt(Server& server, std::uint32_t offset, std::int16_t value) {
  int result = clsFSUIPC::Okay;
  server.fsuipc->WriteInt(offset, 2, value, result);
}

void writeDouble(Server& server, std::uint32_t offset, double value) {
  int result = clsFSUIPC::Okay;
  server.fsuipc->WriteDouble(offset, 8, finite(value), result);
}

}  // namespace vorlent
