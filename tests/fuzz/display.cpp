#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/RuntimeError.h"
#include "display/Command.h"
#include "display/Greeting.h"
#include "display/LivePage.h"
#include "display/RecordReader.h"
#include "display/recordText.h"
#include "require.h"

// An input is a datagram that a display receives, or a line that its user types.

namespace {

using namespace vorlent;

bool isPrintable(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

std::string joined(const Record& record) {
  std::string text = "Data ";
  for (const Field& field : record.fields()) text += field.text + " ";
  return text;
}

void everyViewIsFitToShow(const Record& record) {
  constexpr std::size_t Width = 79;
  for (const std::string& line : livePage(record, {"127.0.0.1:5000", "737", 1, {}, ""}, Width))
    VORLENT_REQUIRE(line.size() <= Width && isPrintable(line));
  VORLENT_REQUIRE(isPrintable(reportLine(record)));
  const auto list = fieldList(record);
  VORLENT_REQUIRE(static_cast<std::size_t>(std::count(list.begin(), list.end(), '\n')) ==
                  record.fields().size());
}

void aRecordIsWholeOrRefused(const std::string& datagram) {
  try {
    const Record record = RecordReader().read(datagram);
    VORLENT_REQUIRE(joined(record) == datagram);
    for (const Field& field : record.fields()) VORLENT_REQUIRE(std::isfinite(field.number));
    everyViewIsFitToShow(record);
  } catch (const RecordFault&) {
  }
}

void aReplyIsNoRecord(const std::string& datagram) {
  const auto reply = readGreetingReply(datagram);
  if (!reply) return;
  VORLENT_REQUIRE(!datagram.starts_with("Data "));
  VORLENT_REQUIRE(datagram.find('\\' + reply->folder + '\\') != std::string::npos);
}

void whatIsSentReadsTheSame(const std::string& line) {
  try {
    const auto message = commandMessage(readCommands(line));
    VORLENT_REQUIRE(message.starts_with("p ") && message.ends_with(' '));
    VORLENT_REQUIRE(commandMessage(readCommands(message.substr(2))) == message);
  } catch (const RuntimeError&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  aRecordIsWholeOrRefused(bytes);
  aReplyIsNoRecord(bytes);
  whatIsSentReadsTheSame(bytes);
  return 0;
}
