#include "web/qrText.h"

#include <qrencode.h>

#include <memory>

namespace vorlent {
namespace {

constexpr int QuietZone = 4;  // modules of light around it (ISO/IEC 18004)
constexpr std::string_view BlackOnWhite = "\x1b[30;107m";
constexpr std::string_view Plain = "\x1b[m";

bool isDark(const QRcode& code, int x, int y) {
  if (x < 0 || y < 0 || x >= code.width || y >= code.width) return false;
  return (code.data[y * code.width + x] & 1) != 0;
}

std::string_view halfBlocks(bool upper, bool lower) {
  if (upper && lower) return "█";
  if (upper) return "▀";
  return lower ? "▄" : " ";
}

}  // namespace

std::string qrText(const std::string& text) {
  const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(
      QRcode_encodeString(text.c_str(), 0, QR_ECLEVEL_M, QR_MODE_8, 1), QRcode_free);
  if (!code) return "";
  std::string lines;
  for (int y = -QuietZone; y < code->width + QuietZone; y += 2) {
    lines += BlackOnWhite;
    for (int x = -QuietZone; x < code->width + QuietZone; ++x)
      lines += halfBlocks(isDark(*code, x, y), isDark(*code, x, y + 1));
    lines += Plain;
    lines += '\n';
  }
  return lines;
}

}  // namespace vorlent
