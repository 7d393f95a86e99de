#include "sticks/catalogues.h"

#include "base/RuntimeError.h"
#include "base/SequentialInput.h"
#include "base/files.h"
#include "platform/Operator.h"
#include "platform/StatusLine.h"
#include "platform/fileChecks.h"
#include "sticks/Sticks.h"

namespace vorlent {

std::vector<ComboBox::Item> readCatalogue(std::string_view text, HashRows hashRows,
                                          std::string& fault) {
  std::vector<ComboBox::Item> items;
  SequentialInput input(text);
  try {
    while (!input.atEnd()) {
      std::string name = input.text();
      const int code = input.int16();
      if (hashRows == HashRows::Listed || !name.starts_with('#'))
        items.push_back({std::move(name), code});
    }
  } catch (const RuntimeError& error) {
    fault = error.description();
  }
  return items;
}

void loadCatalogue(const StickContext& context, const std::string& fileName, HashRows hashRows,
                   std::initializer_list<ComboBox*> boxes) {
  const std::string path = joinedPath(context.programFolder, fileName);
  CheckFileExists(context.op, path, BoxIcon::Critical);
  std::string fault;
  std::vector<ComboBox::Item> items;
  try {
    items = readCatalogue(readFile(path), hashRows, fault);
  } catch (const RuntimeError& error) {
    fault = error.description();
  }
  if (!fault.empty()) context.status.SetStatusText(1, fileName + ": " + fault);
  for (ComboBox* box : boxes) box->Items(items);
}

}  // namespace vorlent
