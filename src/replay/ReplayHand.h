#pragma once

#include <vector>

#include "console/ConsoleOutput.h"
#include "console/OperatorConsole.h"
#include "recording/Event.h"

namespace vorlent {

class Form;
struct Server;

/// Does what the operator did, to the models of the forms. What is not there is passed over.
class ReplayHand {
 public:
  explicit ReplayHand(Server& server);
  void move(const recorded::HandMoved& hand);

 private:
  Form* formNamed(const std::string& name) const;

  Server& server_;
  ConsoleOutput unread_;
  OperatorConsole console_;
};

}  // namespace vorlent
