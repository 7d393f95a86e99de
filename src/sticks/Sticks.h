#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace vorlent {

class Commands;
class Controllers;
class EventLoop;
class FailureDomain;
class Form;
class Operator;
class StatusLine;
class TextBox;
class clsJoyst;
class frmCMore;
class frmCStick;
class frmXY;
struct modPublic;

/// What the sticks stand on.
struct StickContext {
  Controllers& controllers;
  EventLoop& eventLoop;
  FailureDomain& failureDomain;
  Operator& op;
  modPublic& store;
  StatusLine& status;
  const std::unique_ptr<Commands>& commands;
  const std::string& programFolder;
  const TextBox& txtSticks;  ///< how many are in use
  const TextBox& txtPoll;    ///< their poll's period, ms
};

/// The sticks as a whole: what they stand on, the boards, and each board's forms, made by
/// InitJoystick and released by KillAllSticks.
struct Sticks {
  explicit Sticks(const StickContext& context);
  ~Sticks();

  /// The curve's editor, and of the forms that come and go those that are there.
  std::vector<Form*> forms() const;

  StickContext context;
  std::unique_ptr<clsJoyst> joyst;
  std::array<std::unique_ptr<frmCMore>, 9> CMore;
  std::array<std::unique_ptr<frmCStick>, 9> CStick;
  /// The editor of response curves; there is one for all sticks.
  std::unique_ptr<frmXY> XY;
};

}  // namespace vorlent
