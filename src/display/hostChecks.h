#pragma once

#include <string>

/// Checks of what a user gives as a machine: empty for a text that will do, else why not.
namespace vorlent {

/// A dotted IPv4 address.
std::string whyNoAddress(const std::string& text);
/// A name or such an address. What is made of digits and dots alone is meant as an address.
std::string whyNoHost(const std::string& text);
/// The machine in a greeting.
std::string whyNoMachine(const std::string& text);

}  // namespace vorlent
