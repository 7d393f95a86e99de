#include "support/Loudspeaker.h"

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>

namespace vorlent {
namespace {

using namespace std::chrono_literals;

constexpr std::streamoff Frame_bytes = 4;

std::string recording() {
  const char* const path = std::getenv("VORLENT_LOUDSPEAKER");
  if (path == nullptr) throw std::runtime_error("not started by loudspeaker.sh");
  return path;
}

}  // namespace

Loudspeaker::Loudspeaker() : file_(recording(), std::ios::binary) {
  file_.seekg(0, std::ios::end);
  if (!file_) throw std::runtime_error("no recording");
  file_.seekg(std::streamoff(file_.tellg()) / Frame_bytes * Frame_bytes);
  heardUntil(std::chrono::steady_clock::now());
}

const HeardSamples& Loudspeaker::heardUntil(Moment moment) {
  constexpr auto Longest = 10s;
  const auto end = std::max(moment, std::chrono::steady_clock::now()) + Longest;
  for (read(); !heard_.reach(moment); read()) {
    if (std::chrono::steady_clock::now() > end) throw std::runtime_error("nothing is recorded");
    std::this_thread::sleep_for(5ms);
  }
  return heard_;
}

/// What the recorder has not written to the end of a frame waits for the next time.
void Loudspeaker::read() {
  std::array<std::int16_t, 65536> block;
  const std::streamoff from = file_.tellg();
  file_.read(reinterpret_cast<char*>(block.data()), sizeof block);
  const std::streamoff whole_bytes = file_.gcount() / Frame_bytes * Frame_bytes;
  file_.clear();
  file_.seekg(from + whole_bytes);
  if (whole_bytes > 0)
    heard_.add(std::span(block).first(static_cast<std::size_t>(whole_bytes) / 2),
               std::chrono::steady_clock::now());
}

}  // namespace vorlent
