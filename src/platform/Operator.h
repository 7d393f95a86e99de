#pragma once

#include <string>

namespace vorlent {

class Form;

enum class BoxIcon { Plain, Critical, Exclamation };
enum class Pointer { Normal, Hourglass };
enum class Modality { NonModal, Modal };

/// The person in front of the machine.
class Operator {
 public:
  virtual ~Operator() = default;
  /// Returns when it has been acknowledged.
  virtual void messageBox(const std::string& text, BoxIcon icon, const std::string& title) = 0;
  virtual void pointer(Pointer shape) = 0;
  /// Modal: returns when the form has been closed; events go on meanwhile.
  virtual void showForm(Form& form, Modality modality) = 0;
  virtual void hideForm(Form& form) = 0;
};

}  // namespace vorlent
