#pragma once

#include <concepts>
#include <functional>
#include <string>
#include <utility>

#include "base/Deed.h"
#include "base/controls.h"

namespace vorlent {

/// Runs what an event from a widget sets going; lets no exception out, as none may cross Qt. Tells
/// whoever wants to know what the operator is about to do.
class Guard {
 public:
  using Work = std::function<void()>;
  using Watch = std::function<void(Deed deed, const std::string& form, const std::string& control,
                                   const std::string& value)>;

  template <std::invocable<const Work&> Run>
  requires(!std::same_as<Run, Guard>)
      Guard(Run run,
            Watch watch = {})  // NOLINT(google-explicit-constructor): any runner is a guard
      : run_(std::move(run)), watch_(std::move(watch)) {}

  void operator()(const Work& work) const { run_(work); }
  void operator()(Deed deed, const Control& control, const std::string& value,
                  const Work& work) const {
    if (watch_)
      watch_(deed, control.form() != nullptr ? control.form()->name() : "", control.name(), value);
    run_(work);
  }
  void close(Form& form) const {
    if (watch_) watch_(Deed::Close, form.name(), "", "");
    run_([&form] { form.close(); });
  }

 private:
  std::function<void(const Work&)> run_;
  Watch watch_;
};

}  // namespace vorlent
