#include "web/json.h"

#include "base/text.h"

namespace vorlent {
namespace {

void appendText(std::string& to, std::string_view text) {
  to += '"';
  for (const char c : text) {
    if (c == '"' || c == '\\') to += '\\';
    to += c < ' ' || c > '~' ? '?' : c;
  }
  to += '"';
}

void appendMember(std::string& to, const Token& token, const Field& field) {
  appendText(to, token.name);
  to += ':';
  if (token.row->kind == TokenKind::Text)
    appendText(to, field.text);
  else
    appendDouble(to, field.number);
  to += ',';
}

/// In place of the comma behind the last member, if there is one.
void close(std::string& object, std::string_view end) {
  if (object.back() == ',') object.pop_back();
  object += end;
}

std::string oneText(std::string_view name, std::string_view text) {
  std::string message = "{\"" + std::string(name) + "\":";
  appendText(message, text);
  return message + "}";
}

/// Without the mark that ends the record.
std::size_t valuesOf(const Record& record) { return record.fields().size() - 1; }

void appendRow(std::string& to, const FlightPlanRecord& row) {
  to += "{\"name\":";
  appendText(to, trimmed(row.Name));
  to += ",\"latitude\":";
  appendSingle(to, row.Latitude);
  to += ",\"longitude\":";
  appendSingle(to, row.Longitude);
  to += ",\"altitude\":";
  appendInteger(to, row.Altitude);
  to += "},";
}

/// Up to a row that could not be read whole.
void appendRows(std::string& to, const PlanFile& file, bool profilePoints) {
  for (std::size_t i = 0; i < file.wholeRows && i < file.rows.size(); ++i)
    if ((file.rows[i].Kind == "PRF") == profilePoints) appendRow(to, file.rows[i]);
}

}  // namespace

std::string jsonText(std::string_view text) {
  std::string quoted;
  appendText(quoted, text);
  return quoted;
}

std::string recordMessage(const Record& record) {
  std::string message = "{\"record\":{";
  for (std::size_t i = 0; i < valuesOf(record); ++i)
    appendMember(message, record.layout().tokens()[i], record.fields()[i]);
  close(message, "}}");
  return message;
}

std::string changesMessage(const Record& before, const Record& now) {
  std::string message = "{\"changes\":{";
  for (std::size_t i = 0; i < valuesOf(now); ++i)
    if (now.fields()[i].text != before.fields()[i].text)
      appendMember(message, now.layout().tokens()[i], now.fields()[i]);
  close(message, "}}");
  return message;
}

std::string aircraftMessage(const GreetingReply& reply) {
  return "{\"aircraft\":{\"folder\":" + jsonText(reply.folder) +
         ",\"engines\":" + std::to_string(reply.engineCount) +
         ",\"flapIncrement\":" + std::to_string(reply.flapIncrement) + "}}";
}

std::string noticeMessage(std::string_view notice) { return oneText("notice", notice); }

std::string refusalMessage(std::string_view why) { return oneText("refused", why); }

std::string planMessage(const PlanFile& exec, const PlanFile& prof) {
  std::string message = "{\"plan\":{\"route\":[";
  appendRows(message, exec, false);
  close(message, "],\"profile\":[");
  appendRows(message, prof, true);
  close(message, "]}}");
  return message;
}

}  // namespace vorlent
