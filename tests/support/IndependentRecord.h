#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// A second decoder and record builder, written from the description of the offsets alone and in
/// another way than the product's, so that the two can be held against each other. Every variable
/// is a double under its name, faults are NaNs that never get stored, and the record is a list of
/// names in text form.
class IndependentRecord {
 public:
  virtual ~IndependentRecord() = default;

  struct Token {
    std::string name;
    std::string text;
    char kind = 'T';  ///< I, F or D for a number, T for a text, 0 for what never changes
  };

  /// What the poll is given besides the offsets.
  int FsVersionCode = 8;
  std::string sDecimal = ".";
  std::uint32_t Offset_APHeading = 0x07CC;
  float Factor_APHeading = 182.0444F;

  /// Every variable by its name: "Ias", "Engines(2).N1", "NavRadios(1).Obs", "StateValues(16)".
  /// What the poll does not write is set from outside.
  std::map<std::string, double, std::less<>> numbers;
  std::map<std::string, std::string, std::less<>> texts;

  /// Works one poll out of 64 KB of offsets.
  virtual void poll(const std::vector<std::uint8_t>& offsets);
  /// The tokens between "Data " and the end of the record, as of the last poll.
  std::vector<Token> tokens() const;

  /// The fields of a record, empty ones included; "Data " and the last separator are not fields.
  static std::vector<std::string> fieldsOf(std::string_view record);

 protected:
  double u8(std::uint32_t at) const { return (*offsets_)[at]; }
  double u16(std::uint32_t at) const { return u8(at) + 256 * u8(at + 1); }
  double u32(std::uint32_t at) const { return u16(at) + 65536 * u16(at + 2); }
  double s32(std::uint32_t at) const;
  double f64(std::uint32_t at) const;
  double bcd(std::uint32_t at) const;
  double frequency(std::uint32_t at) const;
  double adfFrequency(std::uint32_t low, std::uint32_t extended) const;
  double byteSum(std::uint32_t at) const;

  double number(std::string_view name) const;
  void storeIfInRange(const std::string& name, double value, double lowest, double highest);
  void int16(const std::string& name, double value);
  void int32(const std::string& name, double value);
  void single(const std::string& name, double value);
  void real(const std::string& name, double value);
  void field(const std::string& name, std::uint32_t from, std::uint32_t endOfMirror);

  void dme(const std::string& name, std::uint32_t at, std::string_view missing);
  void commandArrays();
  void stateValues();
  /// The block of engine n, as the variables stand now.
  void keepEngineTokens(int n);

  const std::vector<std::uint8_t>* offsets_ = nullptr;
  std::vector<Token> engineTokens_;

 private:
  void scalars();
  void radiosAndPosition();
  void engine(int n);
  void fuel();
  void controls();
  void receivers();
  void markers();
  void air();
  void electrical();
  void simulatorAutopilot();

  std::string token(std::string_view kind, const std::string& name) const;
  void append(std::vector<Token>& to, std::string_view layout, int n = 0) const;
};

}  // namespace vorlent
