#include "database/databaseAnswer.h"

#include "database/firstRow.h"
#include "platform/helper/databaseMessages.h"

namespace vorlent {

using namespace databaseMessages;

Message databaseAnswer(const Message& question) {
  try {
    const auto row = firstRow(question.empty() ? std::string() : question[0], "PerfData");
    if (!row) return {Empty};
    Message answer{Row};
    for (const auto& [name, text] : *row) {
      answer.push_back(name);
      answer.push_back(text);
    }
    return answer;
  } catch (const DatabaseFault& fault) {
    return {Fault, fault.what()};
  }
}

}  // namespace vorlent
