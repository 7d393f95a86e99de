#pragma once

#include <functional>
#include <memory>
#include <string>

namespace vorlent {

/// The lines that a user types under the display's page, or that a pipe or file has.
class DisplayInput {
 public:
  virtual ~DisplayInput() = default;
};

/// Whether `prompt` is shown by the input, else by the page.
bool inputShowsPrompt(bool edited);

/// `edited`: somebody types at a terminal, under the page, behind `prompt`.
std::unique_ptr<DisplayInput> readDisplayInput(bool edited, const std::string& prompt,
                                               std::function<void(const std::string& line)> onLine);

}  // namespace vorlent
