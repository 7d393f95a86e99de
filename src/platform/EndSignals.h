#pragma once

#include <csignal>

namespace vorlent {

/// For programs without an event loop: from now on the signals that ask a program to end (SIGINT,
/// SIGTERM and the end of its terminal) only make this something other than 0. A program that was
/// started to go on without its terminal, by nohup(1) say, does.
const volatile std::sig_atomic_t& catchEndSignals();

}  // namespace vorlent
