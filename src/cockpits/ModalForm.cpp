#include "cockpits/ModalForm.h"

#include "platform/FailureDomain.h"
#include "platform/Operator.h"

namespace vorlent {

void ModalForm::showModal() {
  if (Visible()) return;
  Form_Load();
  Visible(true);
  context_.failureDomain.showModal(*this);
}

void ModalForm::close() {
  if (!Visible()) return;
  Visible(false);
  context_.op.hideForm(*this);
  if (unload_) unload_();
}

}  // namespace vorlent
