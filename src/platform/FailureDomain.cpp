#include "platform/FailureDomain.h"

#include <exception>
#include <utility>

#include "base/ProcessEnd.h"
#include "base/RuntimeError.h"

namespace vorlent {

void FailureDomain::run(const std::function<void()>& work) {
  if (ended_) return;
  try {
    work();
  } catch (const ProcessEnd& processEnd) {
    end(processEnd.exitStatus);
  } catch (const RuntimeError& error) {
    endByError(error);
  } catch (const std::exception& error) {
    endByError(RuntimeError(RuntimeError::InternalError, error.what()));
  }
}

void FailureDomain::endByError(const RuntimeError& error) {
  operator_.messageBox(
      "Run-time error '" + std::to_string(error.number()) + "':\n\n" + error.description(),
      BoxIcon::Critical, "Vorlent");
  end(1);
}

std::function<void()> FailureDomain::guarded(std::function<void()> handler) {
  return [this, handler = std::move(handler)] { run(handler); };
}

void FailureDomain::pump() {
  eventLoop_.pump();
  stopIfEnded();
}

void FailureDomain::showModal(Form& form) {
  operator_.showForm(form, Modality::Modal);
  stopIfEnded();
}

void FailureDomain::end(int exitStatus) {
  if (ended_) return;
  ended_ = true;
  exitStatus_ = exitStatus;
  eventLoop_.end(exitStatus);
}

void FailureDomain::stopIfEnded() const {
  if (ended_) throw ProcessEnd{exitStatus_};
}

}  // namespace vorlent
