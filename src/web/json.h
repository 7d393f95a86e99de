#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "display/Greeting.h"
#include "display/RecordReader.h"
#include "flightplan/PlanFile.h"

/// What the page is told, each a JSON text of one member. Numbers have a point, texts are escaped.
namespace vorlent {

/// Quoted. A byte outside ASCII becomes a question mark: the server's texts have no encoding.
std::string jsonText(std::string_view text);

/// {"record":{"Latitude":47.26,...}}: every token but the last by its name, a text as text.
std::string recordMessage(const Record& record);
/// {"changes":{...}}: the tokens that are not as they were. Both have the same number of engines.
std::string changesMessage(const Record& before, const Record& now);
/// {"aircraft":{"folder":"737-700","engines":2,"flapIncrement":2047}}
std::string aircraftMessage(const GreetingReply& reply);
/// {"notice":"..."}: what a user should know, a sentence.
std::string noticeMessage(std::string_view notice);
/// {"refused":"..."}: why the page's command did not go out.
std::string refusalMessage(std::string_view why);
/// {"plan":{"route":[{"name":"ALPHA","latitude":50.3,"longitude":8.9,"altitude":12000},...],
/// "profile":[...]}}: the waypoints of EXEC, and those points of PROF that are none.
std::string planMessage(const PlanFile& exec, const PlanFile& prof);

}  // namespace vorlent
