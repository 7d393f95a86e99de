#pragma once

#include <memory>
#include <string>
#include <vector>

namespace vorlent {

struct CloseHandleOnce {
  void operator()(void* handle) const;
};
/// Of the system; closed with this object.
using Handle = std::unique_ptr<void, CloseHandleOnce>;

struct Pipe {
  Handle read;
  Handle write;
};

/// A child may have either end. Without ends when the system has none left.
Pipe makePipe();

/// A process without a window, whose standard input and output are these; nothing when it cannot be
/// started. Of this process's handles it has these two alone, which are two different ones. An
/// argument has no quotes in it.
Handle startHelper(const std::string& program, const std::vector<std::string>& arguments,
                   void* input, void* output);

}  // namespace vorlent
