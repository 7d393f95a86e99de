#pragma once

#include <array>
#include <memory>
#include <string>

#include "base/ControlArray.h"
#include "base/controls.h"

namespace vorlent {

class Commands;
class StatusLine;
struct Accessors;
struct Autoflight;
struct modPublic;

struct TestMcpContext {
  modPublic& store;
  Accessors& accessors;
  Autoflight& autoflight;
  const std::unique_ptr<Commands>& commands;
  StatusLine& status;
};

/// A mode control panel on the screen: its buttons send what a cockpit's buttons send, its lamps
/// and read-outs show what the autoflight holds. Before the autoflight is made it shows and does
/// nothing.
class frmTestMCP : public Form {
 public:
  static constexpr int Buttons = 18;
  static constexpr int ReadOuts = 6;
  /// The colour of a lamp that is on, and of its button.
  static constexpr int Lit = 46 + 256 * 125 + 65536 * 50;
  /// What the read-outs are, by their index.
  enum : int { Course = 0, Speed, Heading, Altitude, VertSpeed, BankAngle };

  explicit frmTestMCP(const TestMcpContext& context);

  /// The read-outs take the simulator's present values.
  void Form_Load();
  void close() override;
  /// The read-outs take what the autoflight holds; one that is being edited stays as it is.
  void UpdateMcpDisplay();
  /// At each cycle: lamps and read-outs follow while the form shows.
  void follow();
  /// Says whether the autoflight's cycle runs: what is pressed before it does is forgotten.
  void showCycle(bool runs, const std::string& text);
  /// Hands the text of a read-out on: a number, with a point or the regional mark; anything else
  /// does nothing. A number that does not fit is told on the status line.
  void ApplyMcpText(int index);

  ControlArray<Button> Command1;
  /// The lamps of the buttons.
  ControlArray<Shape> Shape1;
  Button Command2{"Command2", "TOGA"};
  ControlArray<TextBox> Text1;
  Label lblCycle{"lblCycle"};

 private:
  void Command1Click(int index);
  void UpdateMcpLamps();
  void showSpeed(float mach);
  void show(int index, const std::string& text);
  void apply(int index, double number);
  bool ready() const;

  TestMcpContext context_;
  std::array<bool, ReadOuts> edited_{};
};

}  // namespace vorlent
