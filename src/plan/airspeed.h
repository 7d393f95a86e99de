#pragma once

/// Speeds in the ICAO standard atmosphere, up to 65000 feet.
namespace vorlent::airspeed {

double trueFromCalibrated_kt(double calibrated_kt, double altitude_ft);
double trueFromMach_kt(double mach, double altitude_ft);
double calibratedFromMach_kt(double mach, double altitude_ft);

}  // namespace vorlent::airspeed
