#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorlent {

using namespace std::chrono_literals;

/// That of this process, where a Ctrl-C in its console comes, or one of its own, where none does.
enum class ProcessGroup { Own, Ours };

/// One of our programs in a process of its own, its standard input and output on pipes. It ends
/// with this object, and with this process.
class Program {
 public:
  /// `path` without its extension; an argument has no quotes in it.
  explicit Program(const std::string& path, const std::vector<std::string>& arguments = {},
                   ProcessGroup group = ProcessGroup::Own);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void type(const std::string& line) const;
  /// The next output line for which this text is a part of it; nothing when none comes in time.
  std::optional<std::string> waitForLine(const std::string& part,
                                         std::chrono::milliseconds limit = 30s);
  /// The exit status; nothing when it does not end in time.
  std::optional<int> waitForEnd(std::chrono::milliseconds limit = 60s);
  void kill() const;
  /// All that it has said so far, for messages.
  const std::string& output() const { return output_; }
  unsigned long id() const { return id_; }

 private:
  struct Close {
    void operator()(void* handle) const;
  };
  using Handle = std::unique_ptr<void, Close>;

  bool readMore(std::chrono::steady_clock::time_point until);
  bool hasEnded() const;

  Handle job_;
  Handle process_;
  Handle input_;
  Handle from_;
  unsigned long id_ = 0;
  std::string output_;
  std::size_t searched_ = 0;
};

}  // namespace vorlent
