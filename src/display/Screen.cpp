#include "display/Screen.h"

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

std::string atLine(std::size_t lineNumber) { return "\x1b[" + std::to_string(lineNumber) + ";1H"; }

}  // namespace

Screen::Screen(Write write) : write_(std::move(write)) { write_(EnterOtherPage); }

Screen::~Screen() { write_(LeaveOtherPage); }

void Screen::draw(const std::vector<std::string>& lines) {
  std::string page(SaveCursor);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    page += atLine(i + 1) + lines[i];
    page += ClearToLineEnd;
  }
  page += RestoreCursor;
  write_(page);
}

void Screen::prompt(std::size_t lineNumber) {
  write_(atLine(lineNumber) + std::string(ClearToPageEnd) + "> ");
}

}  // namespace vorlent
