#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/linux/ChildProcess.h"
#include "platform/linux/helper/MessageSocket.h"

namespace vorlent {

/// Where a helper of ours is: beside the program that asks, or, installed, in libexec/vorlent.
std::string helperProgram(const std::string& name);

/// A program of ours that does what may hang or crash, in place of this one. It is started by the
/// first question and lives until it fails to answer one, or until the object ends; it ends by
/// itself when this process does, since its standard input is the connection.
class HelperProcess {
 public:
  /// `greeting`, when there is one, is told to each helper that is started, before its first
  /// question.
  explicit HelperProcess(std::string program, Message greeting = {})
      : program_(std::move(program)), greeting_(std::move(greeting)) {}

  /// No message when the helper was late, or crashed, or gave an answer longer than that: then it
  /// is killed, and the next question goes to a new one.
  HelperAnswer ask(const Message& question, std::chrono::milliseconds deadline,
                   std::size_t mostOfAnAnswer_bytes);

 private:
  struct Running {
    ChildProcess child;
    MessageSocket socket;
  };

  bool start();

  std::string program_;
  Message greeting_;
  std::optional<Running> running_;
};

/// A new helper for each question.
AskHelper askOnce(const std::string& program);

}  // namespace vorlent
