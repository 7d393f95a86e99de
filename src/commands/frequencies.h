#pragma once

/// How the dials of the radios step. COM and NAV in MHz, ADF in kHz.
namespace vorlent {

/// Where a stepped ADF frequency ends up: below 200 at 200, and from 999 on at 200 too. The dial
/// wraps from its top to its bottom and stops at the bottom.
float AdfLimit(double stepped_kHz);
/// An encoder's turn of the ADF dial: as AdfLimit, and any turn of a held 999 or more gives 200.
float AdfTurned(float held_kHz, double turn_kHz);

/// Puts a COM frequency, or its fraction alone, on the 25 kHz raster as it is shown, in steps of
/// 0.02: .00, .02, .05, .07. A fraction below 0 becomes 0.97, one that has reached 1 becomes 0.
double ComRaster(double frequency_MHz);

/// A lever's fraction of a megahertz, 0 to below 1, cut down to the raster: 25 kHz for COM, where
/// the third decimal takes away what the radio would round up, 50 kHz for NAV.
float ComFraction(float fraction_MHz);
float NavFraction(float fraction_MHz);

/// The NAV dials: from 117.9 (fine) or 117 (whole megahertz) on, a step of any size or direction
/// gives 108; below 108 there is nothing.
float NavWrapFrac(float held_MHz, float steps);
float NavWrapWhole(float held_MHz, float step_MHz);

/// A dial in degrees: above 359 a step of any size or direction gives 0, so that 360 stands for one
/// detent; below 0 one turn is added.
float Wrap360(float held_deg, float steps_deg);

/// Four octal digits, of which the one at `position`, 1..4 from the left, goes up by one; after 7
/// comes 0, and the neighbour is not carried. A code of fewer digits is filled up with zeros on its
/// right. Raises InvalidCall for a position outside, and TypeMismatch where no digit stands.
float XpndrDigit(float code, int position);

}  // namespace vorlent
