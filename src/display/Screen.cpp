#include "display/Screen.h"

#include <fmt/format.h>

#include <utility>

namespace vorlent {
namespace {

constexpr std::string_view EnterOtherPage = "\x1b[?1049h\x1b[2J";
constexpr std::string_view LeaveOtherPage = "\x1b[?1049l";
constexpr std::string_view SaveCursor =
    "\x1b"
    "7";
constexpr std::string_view RestoreCursor =
    "\x1b"
    "8";
constexpr std::string_view ClearToLineEnd = "\x1b[K";
constexpr std::string_view ClearToPageEnd = "\x1b[J";

constexpr std::string_view Inverse = "\x1b[7m";
constexpr std::string_view Plain = "\x1b[m";

std::string atLine(std::size_t lineNumber) { return fmt::format("\x1b[{};1H", lineNumber); }

}  // namespace

Screen::Screen(Write write) : write_(std::move(write)) { write_(EnterOtherPage); }

Screen::~Screen() { write_(LeaveOtherPage); }

void Screen::draw(const std::vector<std::string>& lines, bool alarm) {
  std::string page(SaveCursor);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool inverse = alarm && i == 0;
    page += fmt::format("{}{}{}{}{}", atLine(i + 1), inverse ? Inverse : "", lines[i],
                        inverse ? Plain : "", ClearToLineEnd);
  }
  page += RestoreCursor;
  write_(page);
}

void Screen::prompt(std::size_t lineNumber, std::string_view text) {
  write_(fmt::format("{}{}{}", atLine(lineNumber), ClearToPageEnd, text));
}

}  // namespace vorlent
