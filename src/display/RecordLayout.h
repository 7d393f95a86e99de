#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// How a token of the data record is written: a whole number, a number of at most 7 (single) or at
/// most 15 (double) significant digits, or text without blanks, which can be empty.
enum class TokenKind : char { Integer = 'I', Single = 'F', Double = 'D', Text = 'T' };

struct TokenRow {
  int group;     ///< 1 to 21
  int position;  ///< in its group, from 1
  TokenKind kind;
  std::string_view name;  ///< of an engine's token: what follows "Engines(n)."
  std::string_view unit;  ///< "-" when it has none
};

/// Every token in the order of the record. The rows of EngineGroup stand once and hold for every
/// engine block.
std::span<const TokenRow> tokenRows();
constexpr int EngineGroup = 6;

/// What the bits of the tokens `ApBits(1)` to `ApBits(3)` mean, bit 0 first.
constexpr int ApBitSets = 3;
std::span<const std::string_view, 8> apBitNames(int bitSet);

/// Number of engine blocks in a record whose first token is `engineCount`: 1, 2 and 3 give as many,
/// everything else gives four.
int engineBlocks(long long engineCount);

struct Token {
  const TokenRow* row;
  std::string name;  ///< in full, such as "Engines(2).N1"
};

/// The tokens of a record with a given number of engine blocks.
class RecordLayout {
 public:
  /// `blocks`: 1 to 4.
  static const RecordLayout& ofBlocks(int blocks);

  int blocks() const { return blocks_; }
  const std::vector<Token>& tokens() const { return tokens_; }
  std::optional<std::size_t> indexOf(std::string_view name) const;

 private:
  explicit RecordLayout(int blocks);
  void addEngines(std::span<const TokenRow> rows);

  int blocks_;
  std::vector<Token> tokens_;
  std::map<std::string, std::size_t, std::less<>> indices_;
};

}  // namespace vorlent
