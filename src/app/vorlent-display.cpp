// The display client: shows what a server sends and sends what the user types.

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "app/EnoughDescriptors.h"
#include "base/RuntimeError.h"
#include "base/Terminal.h"
#include "commandline/CommandLineEnd.h"
#include "display/DisplayOptions.h"
#include "display/DisplayProgram.h"
#include "platform/linux/libedit/LineEditor.h"
#include "platform/qt/HostAddresses.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtNetwork.h"
#include "platform/qt/Signals.h"
#include "platform/qt/StandardInput.h"

namespace {

using namespace vorlent;

void writeTo(std::FILE* stream, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stream);
  std::fflush(stream);
}

/// Lines of standard input: edited when somebody types them under the page, else as they come.
class Input {
 public:
  Input(DisplayProgram& program, bool edited)
      : handler_([&program](const std::string& line) { program.typed(line); }) {
    if (!edited) {
      lines_.emplace(handler_, [] {});
      return;
    }
    editor_.emplace(DisplayProgram::Prompt, handler_);
    keys_.emplace(0, QSocketNotifier::Read);
    QObject::connect(&*keys_, &QSocketNotifier::activated, &*keys_, [this]() noexcept {
      if (!editor_->readKeys()) keys_->setEnabled(false);
    });
  }

 private:
  LineEditor::LineHandler handler_;
  std::optional<StandardInput> lines_;
  std::optional<LineEditor> editor_;
  std::optional<QSocketNotifier> keys_;
};

int run(int argc, char** argv, const DisplayOptions& options) {
  expectDescriptors("vorlent-display");
  QCoreApplication application(argc, argv);
  QtEventLoop loop;
  QtNetwork network;
  const bool page = outputIsTerminal() && !options.print;
  const bool edited = page && inputIsTerminal();
  DisplayProgram program(loop, network, options, hostAddresses(options.host),
                         {page, [](std::string_view text) { writeTo(stdout, text); },
                          [](std::string_view text) { writeTo(stderr, text); }, terminalWidth,
                          edited ? "" : DisplayProgram::Prompt});
  const Signals termination([&loop](int) { loop.end(0); });
  program.start();
  const Input input(program, edited);
  return loop.exec();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv, readDisplayOptions(argumentsOf(argc, argv)));
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const RuntimeError& error) {
    writeTo(stderr, "vorlent-display: " + error.description() + "\n");
    return 1;
  }
}
