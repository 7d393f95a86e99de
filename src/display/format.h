#pragma once

#include <string>
#include <string_view>

#include "platform/UdpSocket.h"

/// Values as people read them. Nothing here looks at the process's locale.
namespace vorlent {

/// With a question mark for every byte that is no printable ASCII character.
std::string printable(std::string_view text);
/// "192.168.1.20:5000".
std::string endpointText(const Endpoint& endpoint);

/// "N47.26030"; degrees, north positive.
std::string latitudeText(double degrees);
/// "E011.34390"; degrees, east positive.
std::string longitudeText(double degrees);
/// "L15.0" or "R15.0"; of a bank from 0 to 360 degrees, to the left up to 180.
std::string bankText(double degrees);
/// "14:05"; of hours plus minutes / 100.
std::string clockText(double hoursAndMinutes);
/// Of a control's travel from 0 to 16383.
double travel_percent(double position);

}  // namespace vorlent
