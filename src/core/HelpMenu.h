#pragma once

#include <string>

namespace vorlent {

struct Server;

/// The main window's part that shows the operator what he may want to read: the manual, the check
/// list, the state of the navigation data.
class HelpMenu {
 public:
  explicit HelpMenu(Server& server) : server_(server) {}

  void showManual();
  void showCheckList();
  void showAiracStatus();

 private:
  void OpenDocument(const std::string& path);

  Server& server_;
};

}  // namespace vorlent
