#pragma once

#include <functional>
#include <string>
#include <utility>

#include "base/controls.h"
#include "cockpits/CockpitContext.h"

namespace vorlent {

/// A form that is loaded when it is shown, and unloaded when it is closed.
class ModalForm : public Form {
 public:
  ModalForm(std::string name, const CockpitContext& context)
      : Form(std::move(name)), context_(context) {}

  /// Comes back when the operator has closed it, or at once where nobody can.
  void showModal();
  void close() override;
  /// `handler` runs each time the form has been closed, however that happened.
  void onUnload(std::function<void()> handler) { unload_ = std::move(handler); }

 protected:
  virtual void Form_Load() = 0;
  const CockpitContext& context() const { return context_; }

 private:
  CockpitContext context_;
  std::function<void()> unload_;
};

}  // namespace vorlent
